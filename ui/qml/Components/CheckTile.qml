import QtQuick 2.15
import "../../js/Glyphs.js" as Glyphs

// An entry of a list to choose from: its text on the colours that the model or page gives, and where wanted a cross
// that takes it off the list.
Tappable {
    id: tile

    property string text: ""
    property color backColor: "transparent"
    property color foreColor: Theme.text
    property bool isChosen: false // beside its colours
    property string note: ""      // a second, smaller line
    property bool isRemovable: false
    property alias removeName: cross.objectName
    property int pixelSize: Theme.textSize

    readonly property color ink: Theme.legible(foreColor, restColor)

    signal removed()

    implicitWidth: Theme.px(180)
    implicitHeight: Theme.keyHeight
    isToggle: true
    label: text
    restColor: backColor.a > 0 ? backColor : Theme.surface
    border.color: Theme.line

    IconText {
        id: mark
        anchors.left: parent.left
        anchors.leftMargin: 8
        anchors.verticalCenter: parent.verticalCenter
        visible: tile.isChosen
        iconText: Glyphs.check
        iconColor: tile.ink
        pixelSize: Theme.px(22)
    }

    PlainText {
        id: name
        anchors.left: mark.visible ? mark.right : parent.left
        anchors.right: cross.visible ? cross.left : parent.right
        anchors.leftMargin: mark.visible ? 4 : 10
        anchors.rightMargin: cross.visible ? 0 : 10
        y: tile.note === "" ? 4 : 2
        height: tile.note === "" ? parent.height - 8 : parent.height * 0.58
        horizontalAlignment: Text.AlignHCenter
        verticalAlignment: Text.AlignVCenter
        text: tile.text
        wrapMode: Text.Wrap
        leastSize: Theme.leastSize
        font.pixelSize: tile.pixelSize
        color: tile.ink
    }

    PlainText {
        objectName: "note"
        anchors.left: name.left
        anchors.right: name.right
        anchors.top: name.bottom
        anchors.bottom: parent.bottom
        anchors.bottomMargin: 4
        horizontalAlignment: Text.AlignHCenter
        verticalAlignment: Text.AlignVCenter
        visible: text !== ""
        text: tile.note
        leastSize: Theme.leastSize
        font.pixelSize: Theme.captionSize
        color: tile.ink
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
