import QtQuick 2.15
import "../../Components"
import "../../../js/Func.js" as JsFunc

// Hand cards of a room page. Where wanted a card has a cross that takes it off, or a check box for the one that stands
// out; the page tells what a tap on the card means.
ChoiceGrid {
    id: cards

    property bool isReadOnly: false
    property bool isRemovable: false
    property string checkText: "" // label of the check box, without one there is none
    property color selectedColor: "transparent"
    property color restColor: "transparent"

    signal tapped(int index)
    signal checked(int index)
    signal removed(int index, string cardNo)

    tileWidth: checkText === "" ? 180 : 320
    emptyText: "没有手牌"
    delegate: Item {
        id: cell

        readonly property bool isSelected: model.isSelected
        readonly property bool isChecked: model.isChecked

        width: cards.cellWidth
        height: cards.cellHeight

        CheckTile {
            objectName: "card_" + model.cardNo
            anchors.left: parent.left
            anchors.right: checkKey.visible ? checkKey.left : parent.right
            anchors.rightMargin: checkKey.visible ? 12 : 8
            height: parent.height - 8
            enabled: !cards.isReadOnly
            text: model.cardNo
            pixelSize: 24
            backColor: cell.isSelected ? cards.selectedColor : cards.restColor
            foreColor: cell.isSelected && cards.selectedColor.a > 0 ? Theme.textOnColor : Theme.text
            isRemovable: cards.isRemovable
            removeName: "remove_" + model.cardNo
            Accessible.checked: cell.isSelected
            onClicked: cards.tapped(index)
            // The next card comes under the finger; a bouncing tap mustn't take that one off too.
            onRemoved: JsFunc.singly(15, () => cell && cards.removed(index, model.cardNo))
        }

        CheckMark {
            id: checkKey
            objectName: "check_" + model.cardNo
            anchors.right: parent.right
            anchors.rightMargin: 24
            height: parent.height - 8
            visible: cards.checkText !== ""
            text: cards.checkText
            isChecked: cell.isChecked
            onClicked: cards.checked(index)
        }
    }
}
