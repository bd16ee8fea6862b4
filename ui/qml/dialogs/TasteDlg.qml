import QtQuick 2.15
import QtQuick.Controls 2.15
import GlobalConfig 1.0
import TasteVm 1.0
import "../Components"
import "../../js/Func.js" as JsFunc

// How an item is to be prepared, from the groups of choices that the house keeps for it.
ItemDialog {
    id: dialog

    property string itemId: ""
    property var tagIds: []

    function exec() {
        wait()
        return {dlgResult: dlgResult, num: itemNum, tagIds: tagIds, remark: remarkArea.text}
    }

    function load() {
        tasteVm.getTasteApi(itemId)
    }

    objectName: "tasteDlg"
    title: "做法口味"
    height: Theme.px(700)
    confirm: () => {
        if (!tasteVm.isChosen())
            return
        tagIds = tasteVm.getCheckedSel()
        finish(true)
    }
    Component.onCompleted: JsFunc.timerOnce(GlobalConfig.initDelyTime, () => dialog && dialog.load())

    TasteVm {
        id: tasteVm
    }

    FailedLoad {
        anchors.centerIn: groups
        visible: tasteVm.isLoadFailed
        retry: () => dialog.load()
    }

    ListView {
        id: groups
        objectName: "tasteGroups"
        width: parent.width
        anchors.top: parent.top
        anchors.bottom: remarkArea.top
        anchors.bottomMargin: Theme.spacing
        visible: !tasteVm.isLoadFailed
        clip: true
        boundsBehavior: Flickable.StopAtBounds
        cacheBuffer: 2000
        model: tasteVm.tasteTagModel
        ScrollBar.vertical: ListScrollBar {}
        delegate: Column {
            id: group

            readonly property int groupIndex: index
            readonly property var choices: model.selModel
            readonly property bool isMultiple: model.mulFlg

            width: ListView.view.width - Theme.spacing
            spacing: Theme.gap
            bottomPadding: Theme.spacing

            PlainText {
                width: parent.width
                text: model.tagName + (group.isMultiple ? "（可多选）" : "")
                font.pixelSize: Theme.headSize
                color: Theme.textMuted
            }

            Grid {
                columns: 4
                spacing: Theme.gap

                Repeater {
                    model: group.choices

                    CheckTile {
                        objectName: "taste_" + group.groupIndex + "_" + index
                        width: (group.width - 3 * Theme.gap) / 4
                        text: model.tagName
                        isChosen: model.checked
                        backColor: isChosen ? Theme.current : Theme.surface
                        foreColor: isChosen ? Theme.currentText : Theme.text
                        Accessible.checked: isChosen
                        onClicked: group.choices.onChecked(index, group.isMultiple)
                    }
                }
            }
        }

        EmptyText {
            list: groups
            text: "没有可选的做法或口味"
        }
    }

    DishRemark {
        id: remarkArea
        width: parent.width
        anchors.bottom: parent.bottom
        height: Theme.px(140)
    }
}
