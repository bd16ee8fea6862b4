import QtQuick 2.15
import "../../js/Glyphs.js" as Glyphs

// A line of a list that has a menu: a swipe to the left opens it, or the key at the line's end. The list keeps in its
// openRow which line's menu is open.
Rectangle {
    id: row

    property Item list: null
    property int place: -1      // the line's index
    property string namePrefix: "line"
    property var entries: null  // entries(index): [{key, text, isEnabled}]
    property var choose: null   // choose(key, index)
    property int headRoom: 0    // what of the line's height stays in sight above its menu
    default property alias content: body.data

    readonly property bool isOpen: list.openRow === place
    readonly property int swipe: 10 // pixels to the left

    property var shown: []

    function open() {
        shown = entries(place)
        list.openRow = shown.length > 0 ? place : -1
    }

    function close() {
        if (isOpen)
            list.openRow = -1
    }

    // A swipe is taken from whatever key it began on. What goes up or down is the list's.
    DragHandler {
        readonly property real across: active ? centroid.scenePosition.x - centroid.scenePressPosition.x : 0

        target: null
        enabled: !row.list.dragging
        yAxis.enabled: false
        dragThreshold: row.swipe
        onAcrossChanged: {
            if (across > row.swipe)
                row.close()
            else if (across < -row.swipe && !row.isOpen)
                row.open()
        }
    }

    Item {
        id: body
        anchors.left: parent.left
        anchors.right: menuKey.left
        anchors.top: parent.top
        anchors.bottom: parent.bottom
    }

    IconButton {
        id: menuKey
        objectName: row.namePrefix + "Menu_" + row.place
        anchors.right: parent.right
        anchors.verticalCenter: parent.verticalCenter
        width: Theme.px(Theme.touchSize)
        height: Math.min(parent.height, Theme.px(64))
        iconText: row.isOpen ? Glyphs.close : Glyphs.more
        iconColor: Theme.textMuted
        label: "更多"
        isToggle: true
        onClicked: row.isOpen ? row.close() : row.open()
    }

    Rectangle {
        anchors.right: menuKey.left
        anchors.bottom: parent.bottom
        width: Math.min(choices.width, row.width - menuKey.width)
        height: parent.height - row.headRoom
        visible: row.isOpen
        color: Theme.toolGround

        // What lies below isn't tapped through.
        MouseArea {
            anchors.fill: parent
        }

        Row {
            id: choices
            anchors.right: parent.right
            anchors.verticalCenter: parent.verticalCenter
            height: parent.height - 4
            leftPadding: 3
            rightPadding: 3
            spacing: 3

            Repeater {
                model: row.isOpen ? row.shown : []

                PushButton {
                    objectName: "entry_" + modelData.key
                    implicitWidth: Theme.px(77)
                    implicitHeight: parent.height
                    enabled: modelData.isEnabled
                    role: modelData.key === "delete" || modelData.key === "refund" ? "danger" : "plain"
                    pixelSize: Theme.px(17)
                    text: modelData.text
                    action: () => {
                        const key = modelData.key // closing takes the entries away
                        const place = row.place
                        const choose = row.choose
                        row.close()
                        choose(key, place)
                    }
                }
            }
        }
    }

    Rectangle {
        anchors.left: parent.left
        anchors.right: parent.right
        anchors.bottom: parent.bottom
        height: 1
        color: Theme.line
    }
}
