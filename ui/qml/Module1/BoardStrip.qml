import QtQuick 2.15
import "../Components"

// The states to show, side by side; one of them is chosen.
Row {
    id: strip

    property alias model: buttons.model
    property string currentCode: ""
    property int count: buttons.count

    signal chosen(string code)

    height: 52

    Repeater {
        id: buttons

        Item {
            id: button

            readonly property bool isCurrent: model.statusCode === strip.currentCode
            readonly property color backColor: area.pressed ? Theme.keyPressed : isCurrent ? Theme.accent : Theme.surface

            objectName: "status_" + model.statusCode
            width: Math.min(170, strip.width / strip.count)
            height: strip.height
            Accessible.role: Accessible.Button
            Accessible.name: model.statusName
            Accessible.onPressAction: area.choose()

            // Only the ends of the strip are round.
            Rectangle {
                anchors.fill: parent
                radius: Theme.radius
                color: button.backColor
            }

            Rectangle {
                anchors.left: parent.left
                width: Theme.radius
                height: parent.height
                visible: !model.isFirst
                color: button.backColor
            }

            Rectangle {
                anchors.right: parent.right
                width: Theme.radius
                height: parent.height
                visible: !model.isLast
                color: button.backColor
            }

            Rectangle {
                anchors.right: parent.right
                anchors.verticalCenter: parent.verticalCenter
                width: 1
                height: parent.height - 20
                visible: !model.isLast
                color: Theme.line
            }

            Text {
                anchors.centerIn: parent
                width: parent.width - 8
                horizontalAlignment: Text.AlignHCenter
                fontSizeMode: Text.HorizontalFit
                minimumPixelSize: 16
                text: model.statusName
                textFormat: Text.PlainText
                font.family: Pinfang
                font.pixelSize: 22
                color: button.isCurrent && !area.pressed ? Theme.textOnColor : Theme.text
            }

            MouseArea {
                id: area

                function choose() {
                    strip.chosen(model.statusCode)
                }

                anchors.fill: parent
                onClicked: choose()
            }
        }
    }
}
