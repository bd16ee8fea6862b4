import QtQuick 2.15

// A large button that says what it does, and below that what will come of it.
Tappable {
    id: button

    property string text: ""
    property string note: ""
    property string role: "accent" // or "danger"
    property int pixelSize: Theme.px(34)

    label: text
    restColor: role === "danger" ? Theme.danger : Theme.accent
    pressedColor: role === "danger" ? Theme.dangerPressed : Theme.accentPressed
    disabledColor: Theme.disabled

    PlainText {
        x: Theme.gap
        width: parent.width - 2 * Theme.gap
        height: button.note === "" ? parent.height : parent.height * 0.58
        horizontalAlignment: Text.AlignHCenter
        verticalAlignment: button.note === "" ? Text.AlignVCenter : Text.AlignBottom
        text: button.text
        leastSize: Theme.leastSize
        font.pixelSize: button.pixelSize
        color: Theme.textOnColor
    }

    PlainText {
        objectName: "deedNote"
        x: Theme.gap
        width: parent.width - 2 * Theme.gap
        y: parent.height * 0.6
        height: parent.height * 0.34
        horizontalAlignment: Text.AlignHCenter
        verticalAlignment: Text.AlignVCenter
        visible: button.note !== ""
        text: button.note
        wrapMode: Text.Wrap
        leastSize: Theme.leastSize
        font.pixelSize: Theme.textSize
        color: Theme.textOnColor
    }
}
