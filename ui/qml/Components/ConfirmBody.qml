import QtQuick 2.15
import QtQuick.Controls 2.15
import "../../js/Glyphs.js" as Glyphs

// What both confirmations show: title, text, two buttons.
Item {
    id: body

    property string title: ""
    property string content: ""
    property bool hasIcons: false

    signal confirmed()
    signal cancelled()

    // The text comes from outside in parts; nothing in it is markup, but for a bold figure in red and a new line.
    function styled(text) {
        const plain = text.replace(/&/g, "&amp;").replace(/</g, "&lt;").replace(/>/g, "&gt;")
        return plain.replace(/&lt;font color='red'&gt;&lt;b&gt;(\d*)&lt;\/b&gt;&lt;\/font&gt;/g,
                             "<font color='" + Theme.refusal + "'><b>$1</b></font>")
                    .replace(/&lt;\/br&gt;|\r?\n/g, "<br>")
    }

    DialogHead {
        id: head
        anchors.left: parent.left
        anchors.right: parent.right
        title: body.title
    }

    Flickable {
        id: scroll
        anchors.left: parent.left
        anchors.right: parent.right
        anchors.top: head.bottom
        anchors.bottom: buttons.top
        anchors.margins: Theme.spacing
        clip: true
        boundsBehavior: Flickable.StopAtBounds
        contentHeight: Math.max(height, label.height)
        ScrollBar.vertical: ListScrollBar {}

        Text {
            id: label
            objectName: "contentText"
            width: scroll.width
            y: (scroll.contentHeight - height) / 2
            horizontalAlignment: Text.AlignHCenter
            wrapMode: Text.Wrap
            textFormat: Text.StyledText
            text: body.styled(body.content)
            font.family: Pinfang
            font.pixelSize: 22
            color: Theme.text
        }
    }

    Row {
        id: buttons
        anchors.horizontalCenter: parent.horizontalCenter
        anchors.bottom: parent.bottom
        anchors.bottomMargin: 20
        spacing: 32

        PushButton {
            objectName: "cancelButton"
            width: 190
            height: 64
            pixelSize: 26
            role: "plain"
            text: "取  消"
            iconText: body.hasIcons ? Glyphs.close : ""
            onClicked: body.cancelled()
        }

        PushButton {
            objectName: "confirmButton"
            width: 190
            height: 64
            pixelSize: 26
            text: "确  定"
            iconText: body.hasIcons ? Glyphs.check : ""
            onClicked: body.confirmed()
        }
    }
}
