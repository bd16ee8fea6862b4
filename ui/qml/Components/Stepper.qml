import QtQuick 2.15
import "../../js/Glyphs.js" as Glyphs

// A whole number between a minus and a plus, with a label before and a unit behind. It changes nothing itself: the
// page keeps the value.
Row {
    id: stepper

    property string label: ""
    property string unit: ""
    property int value: 0
    property int minimum: 0
    property string nameSuffix: "" // tells the keys of several steppers apart
    property var tapNumber: null   // what a tap on the number does, where it does anything

    signal lowered()
    signal raised()

    spacing: Theme.spacing

    PlainText {
        visible: stepper.label !== ""
        height: minus.height
        verticalAlignment: Text.AlignVCenter
        text: stepper.label
        font.pixelSize: Theme.titleSize
    }

    StepKey {
        id: minus
        objectName: "minusButton" + stepper.nameSuffix
        iconText: Glyphs.minus
        label: "减"
        opacity: stepper.value > stepper.minimum ? 1 : 0.4
        onClicked: stepper.lowered()
    }

    PlainText {
        objectName: "stepValue" + stepper.nameSuffix
        width: Math.max(Theme.px(90), implicitWidth)
        height: minus.height
        horizontalAlignment: Text.AlignHCenter
        verticalAlignment: Text.AlignVCenter
        text: stepper.value + stepper.unit
        font.pixelSize: Theme.px(30)

        MouseArea {
            anchors.fill: parent
            enabled: Boolean(stepper.tapNumber)
            onClicked: stepper.tapNumber()
        }
    }

    StepKey {
        objectName: "plusButton" + stepper.nameSuffix
        iconText: Glyphs.plus
        label: "加"
        onClicked: stepper.raised()
    }
}
