import QtQuick 2.15

// One glyph of the icon font.
Item {
    id: icon

    property int pixelSize: 16
    property string iconColor: ""
    property string iconText: ""
    property bool iconBold: false

    implicitWidth: glyph.implicitWidth
    implicitHeight: pixelSize * 1.194
    width: implicitWidth
    height: implicitHeight

    Text {
        id: glyph
        anchors.centerIn: parent
        font.family: iconfont
        font.pixelSize: icon.pixelSize
        font.bold: icon.iconBold
        text: icon.iconText
        color: icon.iconColor === "" ? Theme.text : icon.iconColor
    }
}
