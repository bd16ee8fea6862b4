import QtQuick 2.15

// What the dialogs with keys share: a line of input above, the keys to the left, cancel and confirm tall to the right.
FocusScope {
    id: body

    property string title: "" // what the number is for
    property alias text: line.text
    property alias prompt: line.prompt
    property alias echoMode: line.echoMode
    property alias isNumKey: pad.isNumKey
    property alias isUpper: pad.isUpper
    property alias isDecimal: pad.isDecimal
    property int mostDigits: 0 // 0: any number of them

    signal confirmed()
    signal cancelled()
    // The Enter key of a keyboard.
    signal accepted()

    function clear() {
        line.clear()
    }

    function type(character) {
        if (pad.isDecimal && character === "." && (line.length === 0 || line.text.indexOf(".") > 0))
            return
        if (mostDigits > 0 && character !== "." && line.text.replace(".", "").length >= mostDigits)
            return
        line.text = line.text + character
    }

    focus: true
    Component.onCompleted: line.forceActiveFocus()
    onVisibleChanged: {
        if (visible)
            line.forceActiveFocus()
    }

    PlainText {
        id: head
        objectName: "keyTitle"
        anchors.left: parent.left
        anchors.right: parent.right
        anchors.top: parent.top
        anchors.leftMargin: Theme.spacing
        anchors.rightMargin: Theme.spacing
        height: text === "" ? 0 : 40
        verticalAlignment: Text.AlignBottom
        text: body.title
        font.pixelSize: 20
        color: Theme.textMuted
    }

    InputLine {
        id: line
        objectName: "inputLine"
        anchors.left: parent.left
        anchors.right: parent.right
        anchors.top: head.bottom
        anchors.margins: 16
        anchors.topMargin: head.height > 0 ? 6 : 16
        validator: RegularExpressionValidator {
            regularExpression: body.isDecimal ? /[0-9.]+/ : /[0-9a-zA-Z]+/
        }
        inputMethodHints: Qt.ImhHiddenText
        onAccepted: body.accepted()
    }

    KeyPad {
        id: pad
        anchors.left: parent.left
        anchors.right: buttons.left
        anchors.top: line.bottom
        anchors.bottom: parent.bottom
        anchors.margins: 16
        onTyped: body.type(character)
        onRemoved: line.text = line.text.slice(0, -1)
    }

    Column {
        id: buttons
        anchors.right: parent.right
        anchors.rightMargin: Theme.spacing
        anchors.top: pad.top
        anchors.bottom: pad.bottom
        width: 140
        spacing: 8

        PushButton {
            objectName: "cancelButton"
            width: parent.width
            height: (parent.height - parent.spacing) / 2
            role: "plain"
            text: "取 消"
            pixelSize: 26
            onClicked: body.cancelled()
        }

        PushButton {
            objectName: "confirmButton"
            width: parent.width
            height: (parent.height - parent.spacing) / 2
            text: "确 定"
            pixelSize: 26
            onClicked: body.confirmed()
        }
    }
}
