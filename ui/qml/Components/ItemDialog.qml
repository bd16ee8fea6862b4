import QtQuick 2.15

// Asks for what a line of an order needs: the item, how many of it, and what the dialog adds between that and the
// button. confirm() decides what the button does.
TitledDialog {
    id: dialog

    property string itemName: ""
    property string itemPrice: ""
    property double itemNum: 1
    property var confirm: () => dialog.finish(true)
    default property alias fields: body.data

    function lower() {
        if (itemNum > 1)
            itemNum -= 1
    }

    dlgResult: true
    hasBack: true
    width: Theme.px(820)
    height: Theme.px(680)

    PlainText {
        anchors.left: parent.left
        anchors.leftMargin: Theme.spacing
        anchors.right: stepper.left
        anchors.rightMargin: Theme.spacing
        anchors.top: stepper.top
        height: stepper.height * 0.55
        verticalAlignment: Text.AlignVCenter
        text: dialog.itemName
        wrapMode: Text.Wrap
        leastSize: Theme.leastSize
        font.pixelSize: Theme.titleSize
    }

    PlainText {
        anchors.left: parent.left
        anchors.leftMargin: Theme.spacing
        anchors.bottom: stepper.bottom
        text: dialog.itemPrice
        font.pixelSize: Theme.headSize
        color: Theme.danger
    }

    Stepper {
        id: stepper
        anchors.right: parent.right
        anchors.rightMargin: Theme.spacing
        y: Theme.spacing
        value: dialog.itemNum
        minimum: 1
        tapNumber: () => dialog.lower()
        onLowered: dialog.lower()
        onRaised: dialog.itemNum += 1
    }

    Item {
        id: body
        anchors.left: parent.left
        anchors.right: parent.right
        anchors.top: stepper.bottom
        anchors.bottom: confirmButton.top
        anchors.margins: Theme.spacing
    }

    PushButton {
        id: confirmButton
        objectName: "confirmButton"
        anchors.horizontalCenter: parent.horizontalCenter
        anchors.bottom: parent.bottom
        anchors.bottomMargin: Theme.spacing
        width: Theme.px(260)
        text: "确  定"
        action: () => {
            Qt.inputMethod.commit() // what is still being composed counts
            dialog.confirm()
        }
    }
}
