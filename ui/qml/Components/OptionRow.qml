import QtQuick 2.15

// A label and the few values, {label, value}, of which one is taken by a touch.
Row {
    id: row

    property string label: ""
    property int labelWidth: Theme.px(110)
    property string namePrefix: ""
    property var options: []
    property int current: -1

    signal chosen(int value)

    spacing: Theme.spacing

    PlainText {
        width: row.labelWidth
        height: Theme.keyHeight
        verticalAlignment: Text.AlignVCenter
        text: row.label
        color: Theme.textMuted
    }

    Grid {
        columns: 4
        spacing: Theme.gap

        Repeater {
            model: row.options

            CheckTile {
                objectName: row.namePrefix + modelData.value
                width: Theme.px(150)
                text: modelData.label
                isToggle: false
                isChosen: modelData.value === row.current
                backColor: isChosen ? Theme.current : Theme.surface
                foreColor: isChosen ? Theme.currentText : Theme.text
                Accessible.checked: isChosen
                onClicked: row.chosen(modelData.value)
            }
        }
    }
}
