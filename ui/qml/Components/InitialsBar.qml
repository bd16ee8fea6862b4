import QtQuick 2.15
import "../../js/Glyphs.js" as Glyphs

// Searches by initials, with keys of its own. Only the keys ask; what a keyboard types doesn't.
Column {
    id: bar

    property alias text: field.text

    signal typed(string text)
    signal emptied()
    signal closed()

    readonly property int keysPerRow: 14
    readonly property var keys: "ABCDEFGHIJKLMNOPQRSTUVWXYZ".split("").concat(["<"])

    function press(key) {
        field.text = key === "<" ? field.text.slice(0, -1) : field.text + key
        typed(field.text)
    }

    spacing: 6

    Row {
        width: parent.width
        height: Theme.px(52)
        spacing: Theme.gap

        InputLine {
            id: field
            objectName: "initialsLine"
            width: parent.width - closeKey.width - parent.spacing
            height: parent.height
            prompt: "简拼搜索"
            font.pixelSize: Theme.headSize
            validator: RegularExpressionValidator {
                regularExpression: /[0-9a-zA-Z]+/
            }
            onTextChanged: {
                if (text === "")
                    bar.emptied()
            }
        }

        IconButton {
            id: closeKey
            objectName: "searchClose"
            width: Theme.px(60)
            height: parent.height
            restColor: Theme.surface
            iconText: Glyphs.close
            iconColor: Theme.textMuted
            label: "关闭搜索"
            onClicked: bar.closed()
        }
    }

    Grid {
        id: grid
        columns: bar.keysPerRow
        spacing: 4

        Repeater {
            model: bar.keys

            Tappable {
                objectName: "initial_" + modelData
                width: (bar.width - (bar.keysPerRow - 1) * grid.spacing) / bar.keysPerRow
                height: Theme.px(52)
                label: modelData
                border.color: Theme.line
                onClicked: bar.press(modelData)

                PlainText {
                    anchors.centerIn: parent
                    text: modelData
                    font.pixelSize: Theme.px(24)
                }
            }
        }
    }
}
