import QtQuick 2.15
import GlobalConfig 1.0
import AllInCardsVm 1.0
import "../../Components"
import "../../../js/Func.js" as JsFunc

// Every hand card in use, men above women.
TitledDialog {
    id: dialog

    function exec() {
        wait()
    }

    objectName: "allInCardsDlg"
    title: "在场手牌"
    hasBack: true
    width: Theme.px(1180)
    height: Theme.px(720)
    Component.onCompleted: JsFunc.timerOnce(GlobalConfig.initDelyTime, () => cardsVm && cardsVm.init())

    AllInCardsVm {
        id: cardsVm
    }

    Row {
        id: top
        x: Theme.spacing
        y: Theme.gap
        height: Theme.keyHeight
        spacing: Theme.spacing

        Repeater {
            model: [{text: "按手牌排序", isByNumber: true}, {text: "按时间排序", isByNumber: false}]

            RadioMark {
                objectName: modelData.isByNumber ? "sortByNumber" : "sortByTime"
                text: modelData.text
                isChecked: cardsVm.isSortCardNo === modelData.isByNumber
                action: () => {
                    if (isChecked)
                        return
                    cardsVm.isSortCardNo = modelData.isByNumber
                    cardsVm.query()
                }
            }
        }

        PlainText {
            objectName: "totalInfo"
            height: parent.height
            verticalAlignment: Text.AlignVCenter
            text: cardsVm.totalInfo
            font.pixelSize: Theme.titleSize
        }
    }

    Column {
        anchors.left: parent.left
        anchors.right: parent.right
        anchors.top: top.bottom
        anchors.bottom: parent.bottom
        anchors.margins: Theme.spacing
        anchors.topMargin: Theme.gap
        visible: !cardsVm.isLoadFailed
        spacing: Theme.gap

        Repeater {
            model: [{caption: "男", cards: cardsVm.pManModel}, {caption: "女", cards: cardsVm.pFemaleModel}]

            CaptionedBox {
                width: parent.width
                height: (parent.height - parent.spacing) / 2
                caption: modelData.caption

                InCards {
                    objectName: "cards_" + modelData.caption
                    anchors.fill: parent
                    model: modelData.cards
                }
            }
        }
    }

    FailedLoad {
        visible: cardsVm.isLoadFailed
        retry: () => cardsVm.query()
    }
}
