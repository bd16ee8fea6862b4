import QtQuick 2.15
import "../../js/Glyphs.js" as Glyphs

// Head row of a dialog: where wanted the way back on the left, the title in the middle, a cross on the right.
Item {
    id: head

    property string title: ""
    property bool hasBack: false
    property bool hasCross: false

    signal exited()

    implicitHeight: Theme.px(64)

    Tappable {
        objectName: "backButton"
        anchors.left: parent.left
        anchors.top: parent.top
        anchors.bottom: parent.bottom
        anchors.margins: 6
        width: backRow.width + 20
        visible: head.hasBack
        label: "返回"
        restColor: "transparent"
        onClicked: head.exited()

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

            PlainText {
                anchors.verticalCenter: parent.verticalCenter
                text: "返回"
                color: Theme.accent
            }
        }
    }

    PlainText {
        anchors.centerIn: parent
        text: head.title
        font.pixelSize: Theme.titleSize
    }

    IconButton {
        objectName: "closeButton"
        anchors.right: parent.right
        anchors.rightMargin: 8
        anchors.verticalCenter: parent.verticalCenter
        width: Theme.px(60)
        height: Theme.px(56)
        visible: head.hasCross
        iconText: Glyphs.close
        iconColor: Theme.textMuted
        pixelSize: 36
        label: "关闭"
        onClicked: head.exited()
    }

    Rectangle {
        anchors.left: parent.left
        anchors.right: parent.right
        anchors.bottom: parent.bottom
        height: 1
        color: Theme.line
    }
}
