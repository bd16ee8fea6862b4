import QtQuick 2.15
import "../../Components"
import "../../../js/Glyphs.js" as Glyphs

// A line of the running service. A tap chooses it, the button takes it back.
Rectangle {
    id: tile

    property string name: ""
    property string kind: ""
    property string times: ""
    property string price: ""
    property bool isChecked: false
    property bool canRefund: false
    property int place: 0
    property var choose: null
    property var refund: null

    radius: Theme.radius
    color: Theme.surface
    border.width: isChecked ? 3 : 1
    border.color: isChecked ? Theme.accent : Theme.line

    Tappable {
        objectName: "running_" + tile.place
        anchors.left: parent.left
        anchors.right: back.left
        anchors.top: parent.top
        anchors.bottom: parent.bottom
        anchors.margins: 3
        restColor: "transparent"
        label: tile.name
        Accessible.checked: tile.isChecked
        onClicked: tile.choose()

        IconText {
            id: mark
            x: Theme.px(8)
            anchors.verticalCenter: parent.verticalCenter
            iconText: tile.isChecked ? Glyphs.radioChecked : Glyphs.radioUnchecked
            iconColor: tile.isChecked ? Theme.accent : Theme.textMuted
            pixelSize: Theme.px(26)
        }

        PlainText {
            id: title
            anchors.left: mark.right
            anchors.leftMargin: Theme.px(8)
            anchors.right: parent.right
            anchors.rightMargin: 4
            height: parent.height * 0.58
            verticalAlignment: Text.AlignVCenter
            text: tile.name
            wrapMode: Text.Wrap
            maximumLineCount: 2
            lineHeight: 0.9
            leastSize: Theme.leastSize
            font.pixelSize: Theme.textSize
        }

        PlainText {
            anchors.left: title.left
            anchors.right: title.right
            anchors.top: title.bottom
            anchors.bottom: parent.bottom
            anchors.bottomMargin: Theme.px(6)
            verticalAlignment: Text.AlignVCenter
            text: tile.kind + "  " + tile.times + "  " + tile.price
            leastSize: Theme.leastSize
            font.pixelSize: Theme.px(17)
            color: Theme.textMuted
        }
    }

    PushButton {
        id: back
        objectName: "refund_" + tile.place
        anchors.right: parent.right
        anchors.rightMargin: visible ? Theme.px(8) : 0
        anchors.verticalCenter: parent.verticalCenter
        visible: tile.canRefund
        implicitWidth: 0
        width: visible ? Theme.px(90) : 0
        height: Theme.px(64)
        pixelSize: Theme.headSize
        role: "plain"
        text: "退  钟"
        action: () => tile.refund()
    }
}
