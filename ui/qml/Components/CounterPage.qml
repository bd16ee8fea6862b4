import QtQuick 2.15

// A counter that guests work: to the left the clock over a list, to the right one picture, one sentence, what the
// counter adds and its button; the answer to a card lies over all of the right but the button.
Item {
    id: page

    property string picture: ""  // a glyph
    property color pictureGround: Theme.accent
    property real pictureShare: 0.36 // of the height
    property string title: ""
    property bool isTitleAlert: false
    property string sentence: ""
    property real listShare: 0.4 // of the width
    property alias listCaption: caption.text
    property alias buttonText: button.text
    property alias canAsk: button.enabled
    property var ask: null       // what the button does
    property QtObject counter: null // whose answers are shown

    property alias list: listPlace.data
    default property alias content: body.data

    Timer {
        interval: 1000
        running: true
        repeat: true
        triggeredOnStart: true
        onTriggered: clock.text = Qt.formatDateTime(new Date(), "yyyy-MM-dd hh:mm:ss")
    }

    Rectangle {
        id: left
        anchors.left: parent.left
        anchors.top: parent.top
        anchors.bottom: parent.bottom
        anchors.margins: Theme.spacing
        width: parent.width * page.listShare
        radius: Theme.radius
        color: Theme.surface

        PlainText {
            id: clock
            objectName: "counterClock"
            anchors.left: parent.left
            anchors.right: parent.right
            anchors.top: parent.top
            anchors.topMargin: Theme.gap
            height: Theme.px(60)
            horizontalAlignment: Text.AlignHCenter
            verticalAlignment: Text.AlignVCenter
            font.pixelSize: Theme.px(32)
        }

        PlainText {
            id: caption
            anchors.left: parent.left
            anchors.leftMargin: Theme.spacing
            anchors.top: clock.bottom
            height: text === "" ? 0 : Theme.px(34)
            color: Theme.textMuted
        }

        Item {
            id: listPlace
            anchors.left: parent.left
            anchors.right: parent.right
            anchors.top: caption.bottom
            anchors.bottom: parent.bottom
            anchors.bottomMargin: Theme.gap
        }
    }

    Item {
        id: right
        anchors.left: left.right
        anchors.leftMargin: Theme.spacing
        anchors.right: parent.right
        anchors.rightMargin: Theme.spacing
        anchors.top: left.top
        anchors.bottom: left.bottom

        Rectangle {
            id: board
            anchors.left: parent.left
            anchors.right: parent.right
            anchors.top: parent.top
            anchors.bottom: button.top
            anchors.bottomMargin: Theme.spacing
            radius: Theme.radius
            color: Theme.surface

            Rectangle {
                id: disc
                anchors.horizontalCenter: parent.horizontalCenter
                y: Theme.spacing
                width: Math.min(Theme.px(210), parent.height * page.pictureShare)
                height: width
                radius: width / 2
                color: page.pictureGround

                IconText {
                    anchors.centerIn: parent
                    iconText: page.picture
                    iconColor: Theme.textOnColor
                    pixelSize: disc.width * 0.62
                }
            }

            PlainText {
                id: head
                objectName: "counterTitle"
                anchors.left: parent.left
                anchors.right: parent.right
                anchors.top: disc.bottom
                anchors.margins: Theme.gap
                horizontalAlignment: Text.AlignHCenter
                text: page.title
                leastSize: Theme.px(22)
                font.pixelSize: Theme.px(40)
                font.bold: true
                color: page.isTitleAlert ? Theme.refusal : Theme.text
            }

            PlainText {
                id: line
                anchors.left: parent.left
                anchors.right: parent.right
                anchors.top: head.bottom
                anchors.margins: Theme.gap
                horizontalAlignment: Text.AlignHCenter
                text: page.sentence
                leastSize: Theme.px(20)
                font.pixelSize: Theme.px(30)
                color: Theme.textMuted
            }

            Item {
                id: body
                anchors.left: parent.left
                anchors.right: parent.right
                anchors.top: line.bottom
                anchors.bottom: parent.bottom
                anchors.margins: Theme.spacing
            }
        }

        CounterAnswer {
            anchors.fill: board
            answer: page.counter ? page.counter.answer : ""
            word: page.counter ? page.counter.answerWord : ""
            note: page.counter ? page.counter.answerText : ""
            onDismissed: page.counter.clearAnswer()
        }

        PushButton {
            id: button
            objectName: "counterButton"
            anchors.left: parent.left
            anchors.right: parent.right
            anchors.bottom: parent.bottom
            height: Theme.px(84)
            text: "输入手牌"
            pixelSize: Theme.px(34)
            action: () => page.ask()
        }
    }
}
