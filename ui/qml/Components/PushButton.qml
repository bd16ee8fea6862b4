import QtQuick 2.15

// A button with a text. Its role gives the colour: "accent", "danger" or "plain".
Tappable {
    id: button

    property string text: ""
    property string iconText: "" // a glyph before the text
    property string role: "accent"
    property int pixelSize: Theme.titleSize

    readonly property bool isPlain: role === "plain"
    readonly property color textColor: isPlain && enabled ? Theme.text : Theme.textOnColor

    implicitWidth: Math.max(Theme.px(140), row.implicitWidth + 2 * Theme.spacing)
    implicitHeight: Theme.buttonHeight
    label: text
    restColor: isPlain ? Theme.surface : role === "danger" ? Theme.danger : Theme.accent
    pressedColor: isPlain ? Theme.keyPressed : role === "danger" ? Theme.dangerPressed : Theme.accentPressed
    disabledColor: Theme.disabled
    border.width: isPlain ? 1 : 0
    border.color: Theme.line

    Row {
        id: row
        anchors.centerIn: parent
        spacing: 8

        IconText {
            anchors.verticalCenter: parent.verticalCenter
            visible: button.iconText !== ""
            iconText: button.iconText
            iconColor: button.textColor
            pixelSize: button.pixelSize
        }

        PlainText {
            anchors.verticalCenter: parent.verticalCenter
            text: button.text
            font.pixelSize: button.pixelSize
            color: button.textColor
        }
    }
}
