import QtQuick 2.15
import "../Components"
import "../../js/Glyphs.js" as Glyphs

// A floor or room type beside the board, with its rooms in use and its tick.
Rectangle {
    id: row

    property string name: ""
    property string num: ""
    property bool isChecked: false

    signal chosen()

    height: Theme.touchSize
    radius: 6
    color: area.pressed ? "#0B4A39" : isChecked ? "#F2B705" : "#1F8F70"
    Accessible.role: Accessible.CheckBox
    Accessible.name: name
    Accessible.checked: isChecked
    Accessible.onPressAction: chosen()

    readonly property color textColor: isChecked && !area.pressed ? Theme.text : Theme.textOnColor

    IconText {
        id: tick
        anchors.left: parent.left
        anchors.leftMargin: 8
        anchors.verticalCenter: parent.verticalCenter
        pixelSize: 24
        iconText: row.isChecked ? Glyphs.checkBoxChecked : Glyphs.checkBoxUnchecked
        iconColor: row.textColor
    }

    Text {
        anchors.left: tick.right
        anchors.leftMargin: 6
        anchors.right: sum.left
        anchors.rightMargin: 6
        anchors.verticalCenter: parent.verticalCenter
        text: row.name
        textFormat: Text.PlainText
        elide: Text.ElideRight
        font.family: Pinfang
        font.pixelSize: Theme.textSize
        color: row.textColor
    }

    Text {
        id: sum
        anchors.right: parent.right
        anchors.rightMargin: 10
        anchors.verticalCenter: parent.verticalCenter
        text: row.num
        textFormat: Text.PlainText
        font.family: Pinfang
        font.pixelSize: Theme.textSize
        color: row.textColor
    }

    MouseArea {
        id: area
        anchors.fill: parent
        onClicked: row.chosen()
    }
}
