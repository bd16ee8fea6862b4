import QtQuick 2.15
import "../../js/Glyphs.js" as Glyphs

// What may be sold: the area, its categories, and the items of a category or of a search by initials. While no area is
// chosen the areas cover it.
Item {
    id: view

    property QtObject vm: null
    property var tapTile: null // tapTile(index)
    property bool isSearching: false

    readonly property bool isLow: vm.isSmallImgMode
    readonly property int leastTileWidth: (isLow ? Theme.px(140) : 100) + tileGap

    readonly property int tileGap: 5

    // An item was booked: the next one is searched for from the start.
    function clearSearch() {
        if (!isSearching)
            return
        bar.text = ""
        vm.queryPlu("")
    }

    // As it is for the next guest.
    function reset() {
        isSearching = false // first: an emptied search takes the tiles away
        bar.text = ""
        tiles.positionViewAtBeginning()
        tabs.positionViewAtBeginning()
    }

    function closeSearch() {
        isSearching = false
        bar.text = ""
        vm.queryPlu("")
    }

    Item {
        id: head
        anchors.left: parent.left
        anchors.right: parent.right
        height: Theme.px(52)

        Tappable {
            id: areaKey
            objectName: "areaKey"
            width: Math.max(Theme.touchSize, Math.min(Theme.px(190), areaText.implicitWidth + 2 * Theme.gap))
            height: parent.height
            restColor: "transparent"
            enabled: vm.areaList.rowCount() > 1
            label: vm.areaName
            onClicked: vm.areaId = ""

            PlainText {
                id: areaText
                anchors.centerIn: parent
                width: Math.min(implicitWidth, Theme.px(174))
                text: "[" + vm.areaName + "]"
                font.pixelSize: Theme.headSize
            }
        }

        ListView {
            id: tabs
            objectName: "typeTabs"
            anchors.left: areaKey.right
            anchors.right: searchKey.left
            anchors.rightMargin: Theme.gap
            height: parent.height
            orientation: ListView.Horizontal
            clip: true
            spacing: 3
            boundsBehavior: Flickable.StopAtBounds
            model: vm.typeList
            delegate: Tappable {
                objectName: "type_" + index
                width: Math.max(Theme.px(76), tabText.implicitWidth + Theme.px(22))
                height: tabs.height
                label: model.typeName
                restColor: "transparent"
                pressedColor: Theme.veil
                Accessible.checked: model.checked
                action: () => vm.onSelectType(model.typeId)

                CurvedRectangle {
                    anchors.fill: parent
                    z: -1
                    cornersRadius: [6, 6, 0, 0]
                    color: model.checked ? Theme.accent : Theme.surface
                }

                PlainText {
                    id: tabText
                    anchors.centerIn: parent
                    text: model.typeName
                    color: model.checked ? Theme.currentText : Theme.text
                }
            }
        }

        IconButton {
            id: searchKey
            objectName: "searchKey"
            anchors.right: parent.right
            width: Theme.px(60)
            height: parent.height
            restColor: view.isSearching ? Theme.accent : Theme.surface
            iconText: Glyphs.search
            iconColor: view.isSearching ? Theme.currentText : Theme.accent
            label: "简拼搜索"
            isToggle: true
            onClicked: view.isSearching ? view.closeSearch() : view.isSearching = true
        }
    }

    InitialsBar {
        id: bar
        anchors.left: parent.left
        anchors.right: parent.right
        anchors.top: head.bottom
        anchors.topMargin: visible ? 6 : 0
        visible: view.isSearching
        height: visible ? implicitHeight : 0
        onTyped: vm.typePlu(text)
        onEmptied: {
            if (view.isSearching)
                vm.queryPlu("")
        }
        onClosed: view.closeSearch()
    }

    ChoiceGrid {
        id: tiles

        readonly property int columns: Math.max(1, Math.min(vm.itemColumns, Math.floor(usableWidth / view.leastTileWidth)))

        objectName: "itemGrid"
        anchors.left: parent.left
        anchors.right: parent.right
        anchors.top: bar.bottom
        anchors.topMargin: Theme.gap
        anchors.bottom: parent.bottom
        visible: !vm.isCatalogueFailed
        reuseItems: true
        cellWidth: Math.floor(usableWidth / columns)
        cellHeight: view.tileGap + Math.max(view.isLow ? 49 : 0, Math.round((cellWidth - view.tileGap) * (view.isLow ? 0.35 : 0.9)))
        model: vm.itemList
        emptyText: view.isSearching ? "输入简拼查找项目" : "没有项目"
        delegate: ItemTile {
            objectName: "item_" + index
            width: tiles.cellWidth - view.tileGap
            height: tiles.cellHeight - view.tileGap
            name: model.itemName
            unit: model.unit
            price: model.price
            picture: model.img
            pictureName: "picture_" + index
            isLow: view.isLow
            onClicked: tiles.run(view.tapTile, index)
        }
    }

    FailedLoad {
        anchors.centerIn: tiles
        visible: vm.isCatalogueFailed
        retry: () => vm.retryCatalogue()
    }

    Rectangle {
        objectName: "areaCover"
        anchors.fill: parent
        visible: vm.areaId === ""
        color: Theme.backgroundTo
        radius: Theme.radius

        MouseArea {
            anchors.fill: parent
        }

        PlainText {
            id: areaTitle
            x: Theme.spacing
            height: Theme.px(60)
            verticalAlignment: Text.AlignVCenter
            text: "区域选择"
            font.pixelSize: Theme.titleSize
        }

        ChoiceGrid {
            id: areas
            objectName: "areaGrid"
            anchors.fill: parent
            anchors.margins: Theme.spacing
            anchors.topMargin: areaTitle.height
            tileWidth: Theme.px(220)
            cellHeight: Theme.px(110)
            model: vm.areaList
            emptyText: "没有可用的区域"
            delegate: CheckTile {
                objectName: "area_" + model.areaId
                width: areas.cellWidth - 10
                height: areas.cellHeight - 10
                text: model.areaName
                isToggle: false
                pixelSize: Theme.titleSize
                onClicked: areas.run(vm.selectArea, model.areaId, model.areaName)
            }
        }
    }
}
