import QtQuick 2.15
import "../../js/Glyphs.js" as Glyphs

// An entry of a list to choose from: its text on the colours that the model or page gives, and where wanted a cross
// that takes it off the list.
Rectangle {
    id: tile

    property string text: ""
    property color backColor: "transparent"
    property color foreColor: Theme.text
    property bool isRemovable: false
    property alias removeName: cross.objectName
    property int pixelSize: Theme.textSize

    signal clicked()
    signal removed()

    implicitWidth: 180
    implicitHeight: 56
    radius: Theme.radius
    color: area.pressed ? Theme.keyPressed : backColor.a > 0 ? backColor : Theme.surface
    border.color: Theme.line
    Accessible.role: Accessible.Button
    Accessible.name: text
    Accessible.onPressAction: clicked()

    Text {
        anchors.left: parent.left
        anchors.right: cross.visible ? cross.left : parent.right
        anchors.leftMargin: 10
        anchors.rightMargin: cross.visible ? 0 : 10
        anchors.verticalCenter: parent.verticalCenter
        horizontalAlignment: Text.AlignHCenter
        text: tile.text
        textFormat: Text.PlainText
        elide: Text.ElideRight
        wrapMode: Text.Wrap
        fontSizeMode: Text.Fit
        minimumPixelSize: 14
        height: parent.height - 8
        verticalAlignment: Text.AlignVCenter
        font.family: Pinfang
        font.pixelSize: tile.pixelSize
        color: tile.foreColor
    }

    MouseArea {
        id: area
        anchors.fill: parent
        onClicked: tile.clicked()
    }

    IconButton {
        id: cross
        objectName: "removeButton"
        anchors.right: parent.right
        anchors.verticalCenter: parent.verticalCenter
        width: Theme.touchSize
        visible: tile.isRemovable
        iconText: Glyphs.clear
        iconColor: Theme.clearMark
        pixelSize: 22
        label: "删除"
        onClicked: tile.removed()
    }
}
