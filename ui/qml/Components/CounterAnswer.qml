import QtQuick 2.15
import "../../js/Glyphs.js" as Glyphs

// What became of a guest's card, to be read from two metres: a word, an icon, a colour, and whose it is or why. It fades
// once there is none; a tap sends it away.
Rectangle {
    id: view

    property string answer: ""
    property string word: ""
    property string note: ""

    signal dismissed()

    property string shown: "" // outlives the answer while it fades

    readonly property var icons: ({taken: Glyphs.success, again: Glyphs.history, refused: Glyphs.error})

    onAnswerChanged: {
        if (answer !== "")
            shown = answer
    }
    objectName: "counterAnswer"
    radius: Theme.radius
    color: shown === "" ? Theme.surface : Theme.answers[shown]
    visible: opacity > 0
    opacity: answer === "" ? 0 : 1

    Behavior on opacity {
        enabled: view.answer === ""
        NumberAnimation { duration: 400 }
    }

    MouseArea {
        anchors.fill: parent
        enabled: view.answer !== ""
        onClicked: view.dismissed()
    }

    Column {
        anchors.centerIn: parent
        width: parent.width - 4 * Theme.spacing
        spacing: Theme.spacing

        IconText {
            anchors.horizontalCenter: parent.horizontalCenter
            iconText: view.shown === "" ? "" : view.icons[view.shown]
            iconColor: Theme.textOnColor
            pixelSize: Math.min(Theme.px(170), view.height * 0.3)
        }

        PlainText {
            objectName: "answerWord"
            width: parent.width
            horizontalAlignment: Text.AlignHCenter
            text: view.word
            leastSize: Theme.px(60)
            font.pixelSize: Theme.px(104)
            font.bold: true
            color: Theme.textOnColor
        }

        PlainText {
            objectName: "answerText"
            width: parent.width
            horizontalAlignment: Text.AlignHCenter
            text: view.note
            wrapMode: Text.Wrap
            maximumLineCount: 3
            font.pixelSize: Theme.px(38)
            color: Theme.textOnColor
        }
    }
}
