import QtQuick 2.15

// Hand cards. What may be done with one is what the page gives a function for: pick(index) by a tap on the card,
// remove(index, cardNo) by its cross, check(index) by its check box, where checkText labels one.
ChoiceGrid {
    id: cards

    property string checkText: ""
    property color selectedColor: "transparent"
    property color restColor: "transparent"
    property var pick: null
    property var check: null
    property var remove: null

    tileWidth: Theme.px(checkText === "" ? 180 : 320)
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
            enabled: Boolean(cards.pick || cards.remove)
            text: model.cardNo
            pixelSize: Theme.px(24)
            isChosen: cell.isSelected && Boolean(cards.pick)
            backColor: cell.isSelected ? cards.selectedColor : cards.restColor
            foreColor: cell.isSelected && cards.selectedColor.a > 0 ? Theme.textOnColor : Theme.text
            isRemovable: Boolean(cards.remove)
            removeName: "remove_" + model.cardNo
            Accessible.checked: cell.isSelected
            onClicked: cards.run(cards.pick, index)
            onRemoved: cards.run(cards.remove, index, model.cardNo)
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
            onClicked: cards.run(cards.check, index)
        }
    }
}
