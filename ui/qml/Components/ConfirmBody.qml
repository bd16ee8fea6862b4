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
            text: body.content.replace(/\n/g, "<br>")
            font.family: Pinfang
            font.pixelSize: Theme.headSize
            color: Theme.text
        }
    }

    Row {
        id: buttons
        anchors.horizontalCenter: parent.horizontalCenter
        anchors.bottom: parent.bottom
        anchors.bottomMargin: Theme.spacing * 1.5
        spacing: Theme.spacing * 2

        PushButton {
            objectName: "cancelButton"
            width: 190
            role: "plain"
            text: "取  消"
            iconText: body.hasIcons ? Glyphs.close : ""
            onClicked: body.cancelled()
        }

        PushButton {
            objectName: "confirmButton"
            width: 190
            text: "确  定"
            iconText: body.hasIcons ? Glyphs.check : ""
            onClicked: body.confirmed()
        }
    }
}
