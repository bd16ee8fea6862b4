import QtQuick 2.15
import "../../Components"

// The operations of a room dialog. The one that was chosen last stands out.
Flow {
    id: menu

    property alias model: entries.model
    property string currentCode: ""

    signal chosen(string code)

    spacing: 8

    Repeater {
        id: entries

        Tappable {
            readonly property bool isCurrent: model.code === menu.currentCode

            objectName: "menu_" + model.code
            width: 120
            height: 45
            radius: 6
            label: model.name
            restColor: isCurrent ? Theme.current : model.backColor
            onClicked: menu.chosen(model.code)

            PlainText {
                anchors.centerIn: parent
                text: parent.label
                font.pixelSize: Theme.headSize
                color: parent.isCurrent ? Theme.currentText : Theme.otherText
            }
        }
    }
}
