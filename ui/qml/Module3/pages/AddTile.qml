import QtQuick 2.15
import "../../Components"

// An item that clocks can be added of, or that the chosen line can be changed to.
Rectangle {
    id: tile

    property string name: ""
    property string times: ""
    property string price: ""
    property int place: 0
    property bool canAdd: false
    property bool canChange: false
    property bool isFree: true // nothing runs
    property var add: null     // add()
    property var ask: null     // for how many
    property var change: null

    readonly property int pad: Theme.px(6)

    radius: Theme.radius
    color: Theme.surface
    border.color: Theme.line

    ServerText {
        anchors.left: parent.left
        anchors.right: parent.right
        anchors.top: parent.top
        anchors.bottom: keys.top
        anchors.margins: tile.pad
        anchors.topMargin: 3
        anchors.bottomMargin: 2
        name: tile.name
        times: tile.times
        price: tile.price
    }

    Row {
        id: keys
        anchors.left: parent.left
        anchors.right: parent.right
        anchors.bottom: parent.bottom
        anchors.margins: 3
        visible: tile.canAdd
        height: visible ? Theme.keyHeight : 0
        spacing: 3

        PushButton {
            objectName: "add_" + tile.place
            implicitWidth: 0
            width: tile.canChange ? (keys.width - keys.spacing) / 2 : keys.width
            height: keys.height
            enabled: tile.isFree
            pixelSize: Theme.headSize
            text: "加钟"
            action: () => tile.add()
            holdAction: () => tile.ask()
        }

        PushButton {
            objectName: "change_" + tile.place
            implicitWidth: 0
            width: (keys.width - keys.spacing) / 2
            height: keys.height
            visible: tile.canChange
            enabled: tile.isFree
            role: "plain"
            pixelSize: Theme.headSize
            text: "换钟"
            action: () => tile.change()
        }
    }
}
