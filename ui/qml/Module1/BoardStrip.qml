import QtQuick 2.15
import "../Components"

// The states to show, side by side; one of them is chosen.
Row {
    id: strip

    property alias model: buttons.model
    property string currentCode: ""

    readonly property int buttonWidth: Math.min(Theme.px(170), width / Math.max(1, buttons.count))
    // All alike, by the longest of their texts, which has five characters.
    readonly property int pixelSize: Math.max(Theme.leastSize, Math.min(Theme.headSize, (buttonWidth - 10) / 5))

    signal chosen(string code)

    height: Theme.px(52)

    Repeater {
        id: buttons

        Tappable {
            id: button

            readonly property bool isCurrent: model.statusCode === strip.currentCode

            objectName: "status_" + model.statusCode
            width: strip.buttonWidth
            height: strip.height
            label: model.statusName
            restColor: isCurrent ? Theme.accent : Theme.surface
            onClicked: strip.chosen(model.statusCode)

            // Only the ends of the strip are round.
            Rectangle {
                anchors.left: parent.left
                width: Theme.radius
                height: parent.height
                visible: !model.isFirst
                color: button.color
            }

            Rectangle {
                anchors.right: parent.right
                width: Theme.radius
                height: parent.height
                visible: !model.isLast
                color: button.color
            }

            Rectangle {
                anchors.right: parent.right
                anchors.verticalCenter: parent.verticalCenter
                width: 1
                height: parent.height - 20
                visible: !model.isLast
                color: Theme.line
            }

            PlainText {
                anchors.centerIn: parent
                width: parent.width - 8
                horizontalAlignment: Text.AlignHCenter
                fontSizeMode: Text.HorizontalFit
                leastSize: Theme.leastSize
                text: model.statusName
                font.pixelSize: strip.pixelSize
                color: Theme.textOn(button.color)
            }
        }
    }
}
