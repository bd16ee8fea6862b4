import QtQuick 2.15
import "../../js/Glyphs.js" as Glyphs

// Asks for the number of a hand card; takes no place where none are used.
AskButton {
    objectName: "cardButton"
    width: visible ? Theme.px(220) : 0
    text: "请输入手牌号"
    iconText: Glyphs.card
}
