import QtQuick 2.15
import "../../Components"

// The clock kinds, of which one is in force.
Row {
    id: kinds

    property alias model: list.model
    property int kindWidth: Theme.px(120)
    property bool canChoose: false
    property var choose: null // choose(index)

    spacing: Theme.gap

    Repeater {
        id: list

        Tappable {
            objectName: "kind_" + index
            width: kinds.kindWidth
            height: kinds.height
            enabled: kinds.canChoose
            label: model.typeName
            restColor: model.isChecked ? Theme.accent : Theme.surface
            pressedColor: model.isChecked ? Theme.accentPressed : Theme.keyPressed
            border.color: model.isChecked ? Theme.accent : Theme.line
            Accessible.role: Accessible.RadioButton
            Accessible.checked: model.isChecked
            action: () => kinds.choose(index)

            PlainText {
                anchors.centerIn: parent
                text: model.typeName
                font.pixelSize: Theme.titleSize
                color: model.isChecked ? Theme.textOnColor : kinds.canChoose ? Theme.text : Theme.textFaint
            }
        }
    }
}
