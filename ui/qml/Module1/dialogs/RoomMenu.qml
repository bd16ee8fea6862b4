import QtQuick 2.15
import "../../Components"

// The operations of a room dialog. The one that was chosen last stands out; those that end a stay stand apart.
Flow {
    id: menu

    property alias model: entries.model
    property string currentCode: ""

    readonly property var endings: ["CANCEL_ROOM", "OUT_ROOM"]

    signal chosen(string code)

    spacing: Theme.gap

    Repeater {
        id: entries

        Tappable {
            readonly property bool isCurrent: model.code === menu.currentCode
            readonly property bool isEnding: menu.endings.includes(model.code)

            objectName: "menu_" + model.code
            width: Theme.px(120)
            height: Theme.px(45)
            reach: 4
            radius: 6
            label: model.name
            restColor: isCurrent ? Theme.current : model.backColor
            border.width: isEnding ? 2 : 1
            border.color: isEnding ? Theme.danger : Theme.textFaint
            onClicked: menu.chosen(model.code)

            PlainText {
                anchors.centerIn: parent
                text: parent.label
                font.pixelSize: Theme.headSize
                font.bold: parent.isEnding
                color: parent.isCurrent ? Theme.currentText : Theme.otherText
            }
        }
    }
}
