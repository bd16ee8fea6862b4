import QtQuick 2.15

// A button with a text. Its role gives the colour: "accent", "danger" or "plain".
Rectangle {
    id: button

    property string text: ""
    property string iconText: "" // a glyph before the text
    property string role: "accent"
    property int pixelSize: Theme.titleSize

    readonly property bool isPlain: role === "plain"
    readonly property color restColor: isPlain ? Theme.surface : role === "danger" ? Theme.danger : Theme.accent
    readonly property color pressedColor: isPlain ? Theme.keyPressed
                                                  : role === "danger" ? Theme.dangerPressed : Theme.accentPressed
    readonly property color textColor: isPlain && enabled ? Theme.text : Theme.textOnColor

    signal clicked()

    implicitWidth: Math.max(140, label.implicitWidth + 2 * Theme.spacing)
    implicitHeight: Theme.buttonHeight
    radius: Theme.radius
    color: !enabled ? Theme.disabled : area.pressed ? pressedColor : restColor
    border.width: isPlain ? 1 : 0
    border.color: Theme.line
    Accessible.role: Accessible.Button
    Accessible.name: text
    Accessible.onPressAction: clicked()

    Row {
        id: label
        anchors.centerIn: parent
        spacing: 8

        IconText {
            anchors.verticalCenter: parent.verticalCenter
            visible: button.iconText !== ""
            iconText: button.iconText
            iconColor: button.textColor
            pixelSize: button.pixelSize
        }

        Text {
            anchors.verticalCenter: parent.verticalCenter
            text: button.text
            textFormat: Text.PlainText
            font.family: Pinfang
            font.pixelSize: button.pixelSize
            color: button.textColor
        }
    }

    MouseArea {
        id: area
        anchors.fill: parent
        onClicked: button.clicked()
    }
}
