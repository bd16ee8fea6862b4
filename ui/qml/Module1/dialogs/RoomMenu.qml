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

        Rectangle {
            readonly property bool isCurrent: model.code === menu.currentCode

            objectName: "menu_" + model.code
            width: 120
            height: 45
            radius: 6
            color: area.pressed ? Theme.keyPressed : isCurrent ? "#398FFF" : model.backColor
            Accessible.role: Accessible.Button
            Accessible.name: model.name
            Accessible.onPressAction: menu.chosen(model.code)

            Text {
                anchors.centerIn: parent
                text: model.name
                textFormat: Text.PlainText
                font.family: Pinfang
                font.pixelSize: 22
                color: parent.isCurrent ? "#FFFFFF" : "#555555"
            }

            MouseArea {
                id: area
                anchors.fill: parent
                onClicked: menu.chosen(model.code)
            }
        }
    }
}
