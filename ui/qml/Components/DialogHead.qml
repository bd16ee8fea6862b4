import QtQuick 2.15
import "../../js/Glyphs.js" as Glyphs

// Head row of a dialog: the way back on the left, the title in the middle.
Item {
    id: head

    property string title: ""
    property bool hasBack: true

    signal back()

    implicitHeight: 60

    Item {
        objectName: "backButton"
        visible: head.hasBack
        width: backRow.width + 2 * Theme.spacing
        height: parent.height
        Accessible.role: Accessible.Button
        Accessible.name: "返回"
        Accessible.onPressAction: head.back()

        Rectangle {
            anchors.fill: parent
            anchors.margins: 6
            radius: Theme.radius
            color: Theme.keyPressed
            visible: backArea.pressed
        }

        Row {
            id: backRow
            anchors.centerIn: parent
            spacing: 6

            IconText {
                anchors.verticalCenter: parent.verticalCenter
                iconText: Glyphs.back
                pixelSize: 26
                iconColor: Theme.accent
            }

            Text {
                anchors.verticalCenter: parent.verticalCenter
                text: "返回"
                font.family: Pinfang
                font.pixelSize: Theme.textSize
                color: Theme.accent
            }
        }

        MouseArea {
            id: backArea
            anchors.fill: parent
            onClicked: head.back()
        }
    }

    Text {
        anchors.centerIn: parent
        text: head.title
        textFormat: Text.PlainText
        font.family: Pinfang
        font.pixelSize: Theme.titleSize
        color: Theme.text
    }

    Rectangle {
        anchors.left: parent.left
        anchors.right: parent.right
        anchors.bottom: parent.bottom
        height: 1
        color: Theme.line
    }
}
