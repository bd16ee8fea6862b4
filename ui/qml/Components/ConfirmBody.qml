import QtQuick 2.15
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
        hasBack: false
        title: body.title
    }

    Text {
        objectName: "contentText"
        anchors.left: parent.left
        anchors.right: parent.right
        anchors.top: head.bottom
        anchors.bottom: buttons.top
        anchors.margins: Theme.spacing
        horizontalAlignment: Text.AlignHCenter
        verticalAlignment: Text.AlignVCenter
        wrapMode: Text.Wrap
        elide: Text.ElideRight
        textFormat: Text.StyledText
        text: body.content
        font.family: Pinfang
        font.pixelSize: 22
        color: Theme.text
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
