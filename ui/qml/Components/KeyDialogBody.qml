import QtQuick 2.15

// What the dialogs with keys share: a line of input above, the keys to the left, cancel and confirm tall to the right.
Item {
    id: body

    property alias text: line.text
    property alias prompt: line.prompt
    property alias echoMode: line.echoMode
    property alias isNumKey: pad.isNumKey
    property alias isUpper: pad.isUpper
    property alias isDecimal: pad.isDecimal

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
        line.text = line.text + character
    }

    Component.onCompleted: line.forceActiveFocus()

    InputLine {
        id: line
        objectName: "inputLine"
        anchors.left: parent.left
        anchors.right: parent.right
        anchors.top: parent.top
        anchors.margins: Theme.spacing
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
        anchors.margins: Theme.spacing
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
            onClicked: body.cancelled()
        }

        PushButton {
            objectName: "confirmButton"
            width: parent.width
            height: (parent.height - parent.spacing) / 2
            text: "确 定"
            onClicked: body.confirmed()
        }
    }
}
