import QtQuick 2.15
import GlobalConfig 1.0
import Module7Vm 1.0
import "../Components"
import "../../js/Ask.js" as Ask
import "../../js/Func.js" as JsFunc
import "../../js/Glyphs.js" as Glyphs

// Self entry: a guest presents his hand card and one of the terminal's item is entered against its tickets.
CounterPage {
    id: page

    function askCard() {
        const card = Ask.card("请输入手牌号", 30000)
        if (card !== undefined && counterVm)
            counterVm.present(card.cardNo, card.rfid)
    }

    objectName: "Module7"
    counter: counterVm
    picture: Glyphs.moduleSelf
    pictureGround: "#2A7F3D"
    title: counterVm.itemName
    sentence: "请刷手牌，领取一份"
    listCaption: "最近录入"
    canAsk: counterVm.isEnabled
    ask: page.askCard
    Component.onCompleted: JsFunc.timerOnce(GlobalConfig.initDelyTime, () => counterVm && counterVm.init())

    Module7Vm {
        id: counterVm
    }

    list: ListView {
        id: entries
        objectName: "counterList"
        anchors.fill: parent
        clip: true
        boundsBehavior: Flickable.StopAtBounds
        model: counterVm.pOrderModel
        delegate: CounterLine {
            objectName: "entry_" + index
            width: entries.width
            text: model.cardNo
            time: model.createTime
        }

        EmptyText {
            list: entries
            text: "还没有录入"
        }

        FailedLoad {
            visible: counterVm.isLoadFailed && entries.count === 0
            retry: () => counterVm.init()
        }
    }

    PlainText {
        id: total
        objectName: "totalCount"
        width: parent.width
        horizontalAlignment: Text.AlignHCenter
        text: "已出 " + counterVm.totalCount + " 份"
        font.pixelSize: Theme.px(30)
    }

    GridView {
        id: types

        readonly property int columns: Math.max(1, Math.floor(width / Theme.px(200)))

        anchors.left: parent.left
        anchors.right: parent.right
        anchors.top: total.bottom
        anchors.topMargin: Theme.spacing
        anchors.bottom: parent.bottom
        clip: true
        boundsBehavior: Flickable.StopAtBounds
        cellWidth: Math.floor(width / columns)
        cellHeight: Theme.px(50)
        model: counterVm.pCardTypeModel
        delegate: Item {
            width: types.cellWidth
            height: types.cellHeight

            PlainText {
                objectName: "cardType_" + index
                anchors.centerIn: parent
                width: parent.width - 12
                horizontalAlignment: Text.AlignHCenter
                text: model.typeName + ": " + model.sumNum
                leastSize: Theme.leastSize
                font.pixelSize: Theme.headSize
                color: Theme.textMuted
            }
        }
    }
}
