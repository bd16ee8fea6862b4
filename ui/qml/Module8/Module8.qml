import QtQuick 2.15
import Module8Vm 1.0
import "../Components"
import "../../js/Ask.js" as Ask
import "../../js/Func.js" as JsFunc
import "../../js/Glyphs.js" as Glyphs

// The door of the buffet: every hand card that is presented is given a meal of the time that runs.
CounterPage {
    id: page

    function askCard() {
        const card = Ask.card("请输入手牌号", 30000)
        if (card !== undefined && counterVm)
            counterVm.present(card.cardNo, card.rfid)
    }

    objectName: "Module8"
    counter: counterVm
    picture: Glyphs.moduleBuffet
    pictureGround: "#8F6400"
    pictureShare: 0.26
    title: counterVm.pollFailure === "" ? counterVm.mealName : counterVm.pollFailure
    isTitleAlert: counterVm.pollFailure !== ""
    sentence: counterVm.pollFailure !== "" ? "正在重新连接，请稍候" : counterVm.isOnMealTime ? "请刷手牌用餐" : "现在没有供餐"
    listCaption: "本餐次手牌"
    canAsk: counterVm.isEnabled
    ask: page.askCard
    Component.onCompleted: JsFunc.delay15(() => counterVm && counterVm.init())

    Module8Vm {
        id: counterVm
    }

    list: ListView {
        id: cards
        objectName: "counterList"
        anchors.fill: parent
        clip: true
        boundsBehavior: Flickable.StopAtBounds
        model: counterVm.pMealCardsModel
        delegate: CounterLine {
            objectName: "meal_" + index
            width: cards.width
            text: model.cardNo
            note: model.itemName + "【" + model.childNum + "】"
            time: model.createTime
        }

        EmptyText {
            list: cards
            text: "还没有手牌用餐"
        }

        FailedLoad {
            visible: counterVm.isLoadFailed && cards.count === 0
            retry: () => counterVm.init()
        }
    }

    Column {
        id: child
        anchors.horizontalCenter: parent.horizontalCenter
        spacing: Theme.gap

        CheckMark {
            anchors.horizontalCenter: parent.horizontalCenter
            objectName: "childBox"
            text: "儿童餐"
            isChecked: counterVm.isChild
            onClicked: counterVm.isChild = !counterVm.isChild
        }

        // Its place is kept, so that nothing moves under a finger.
        Stepper {
            opacity: counterVm.isChild ? 1 : 0
            enabled: counterVm.isChild
            value: counterVm.childNum
            minimum: 1
            unit: " 份"
            onLowered: counterVm.changeChildNum(-1)
            onRaised: counterVm.changeChildNum(1)
        }
    }

    PlainText {
        objectName: "mealPerson"
        anchors.left: parent.left
        anchors.right: parent.right
        anchors.top: child.bottom
        anchors.topMargin: Theme.gap
        anchors.bottom: parent.bottom
        horizontalAlignment: Text.AlignHCenter
        verticalAlignment: Text.AlignVCenter
        text: counterVm.mealPerson.trim()
        leastSize: Theme.leastSize
        font.pixelSize: Theme.headSize
        color: Theme.textMuted
    }
}
