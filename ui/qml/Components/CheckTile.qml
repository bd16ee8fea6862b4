import QtQuick 2.15
import "../../js/Glyphs.js" as Glyphs

// An entry of a list to choose from: its text on the colours that the model or page gives, and where wanted a cross
// that takes it off the list.
Tappable {
    id: tile

    property string text: ""
    property color backColor: "transparent"
    property color foreColor: Theme.text
    property bool isRemovable: false
    property alias removeName: cross.objectName
    property int pixelSize: Theme.textSize

    signal removed()

    implicitWidth: 180
    implicitHeight: 56
    label: text
    restColor: backColor.a > 0 ? backColor : Theme.surface
    border.color: Theme.line

    PlainText {
        anchors.left: parent.left
        anchors.right: cross.visible ? cross.left : parent.right
        anchors.leftMargin: 10
        anchors.rightMargin: cross.visible ? 0 : 10
        anchors.verticalCenter: parent.verticalCenter
        height: parent.height - 8
        horizontalAlignment: Text.AlignHCenter
        verticalAlignment: Text.AlignVCenter
        text: tile.text
        wrapMode: Text.Wrap
        leastSize: 14
        font.pixelSize: tile.pixelSize
        color: tile.foreColor
    }

    IconButton {
        id: cross
        objectName: "removeButton"
        anchors.right: parent.right
        anchors.verticalCenter: parent.verticalCenter
        visible: tile.isRemovable
        iconText: Glyphs.clear
        iconColor: Theme.clearMark
        pixelSize: 22
        label: "删除"
        onClicked: tile.removed()
    }
}
