import QtQuick 2.15

// The keys of every dialog that has some. It edits nothing itself: key(text) tells which key was tapped, after the
// layout and the case have been dealt with here.
Item {
    id: pad

    // Digits or letters; decimal keys have a point in the place of the letters' key.
    property bool isNumKey: true
    property bool isUpper: true
    property bool isDecimal: false

    readonly property var digitKeys: ["1", "2", "3", "4", "5", "6", "7", "8", "9", isDecimal ? "." : "A~Z", "0", "<"]
    readonly property var letterKeys: "abcdefghijklmnopqrstuvwxyz".split("").concat(["123", "<", "^"])
    readonly property var keys: isNumKey ? digitKeys : letterKeys
    readonly property int columns: isNumKey ? 3 : 6
    readonly property int rows: isNumKey ? 4 : 5
    readonly property int gap: 8

    // A character to add.
    signal typed(string character)
    // The last character is to go.
    signal removed()

    function press(key) {
        if (key === "<")
            removed()
        else if (key === "A~Z" || key === "123")
            isNumKey = !isNumKey
        else if (key === "^")
            isUpper = !isUpper
        else
            typed(!isNumKey && isUpper ? key.toUpperCase() : key)
    }

    Grid {
        anchors.fill: parent
        columns: pad.columns
        spacing: pad.gap

        Repeater {
            model: pad.keys

            Tappable {
                id: key

                readonly property bool isOn: modelData === "^" && pad.isUpper

                objectName: "key_" + modelData
                width: (pad.width - (pad.columns - 1) * pad.gap) / pad.columns
                height: (pad.height - (pad.rows - 1) * pad.gap) / pad.rows
                label: modelData
                restColor: isOn ? Theme.accent : Theme.surface
                border.color: Theme.line
                onClicked: {
                    feedback.restart()
                    pad.press(modelData)
                }

                PlainText {
                    anchors.centerIn: parent
                    text: modelData
                    font.pixelSize: Theme.keySize
                    color: key.isOn && !key.isPressed ? Theme.textOnColor : Theme.text

                    NumberAnimation on font.pixelSize {
                        id: feedback
                        running: false
                        from: Theme.keyPressedSize
                        to: Theme.keySize
                        duration: 50
                    }
                }
            }
        }
    }
}
