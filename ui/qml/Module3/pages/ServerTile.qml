import QtQuick 2.15
import "../../Components"
import "../../../js/Glyphs.js" as Glyphs

// An item to begin a service with.
Tappable {
    id: tile

    property string times: ""
    property string price: ""
    property bool isChecked: false

    readonly property int pad: Theme.px(8)

    restColor: isChecked ? Theme.accent : Theme.surface
    pressedColor: isChecked ? Theme.accentPressed : Theme.keyPressed
    border.color: isChecked ? Theme.accent : Theme.line
    Accessible.role: Accessible.RadioButton
    Accessible.checked: isChecked

    ServerText {
        anchors.fill: parent
        anchors.margins: 3
        anchors.leftMargin: tile.pad
        anchors.rightMargin: tile.pad
        name: tile.label
        times: tile.times
        price: tile.price
        color: tile.isChecked ? Theme.textOnColor : Theme.text
        priceColor: tile.isChecked ? Theme.textOnColor : Theme.danger
    }

    IconText {
        anchors.horizontalCenter: parent.horizontalCenter
        anchors.horizontalCenterOffset: -Theme.px(16)
        anchors.bottom: parent.bottom
        anchors.bottomMargin: 3
        visible: tile.isChecked
        iconText: Glyphs.check
        iconColor: Theme.textOnColor
        pixelSize: Theme.px(22)
    }
}
