import QtQuick 2.15
import NumKeyVm 1.0
import MyMessage 1.0
import "../Components"

// Asks for a number or word, or takes a card in its place.
DialogFrame {
    id: dialog

    property string strText: ""     // the prompt
    property bool isReadOk: false   // a card may end the dialog
    property int readType: 0        // 1: a guest's hand card
    property alias isNumKey: body.isNumKey
    property alias isUpper: body.isUpper
    property string inputText: ""
    property string cardUid: ""
    property bool isRead: false

    function exec() {
        wait()
        return {dlgResult: dlgResult, inputText: inputText, cardUid: cardUid, isRead: isRead}
    }

    function confirm() {
        if (body.text === "") {
            MyMessage.showMessage("输入内容不能为空", 2)
            return
        }
        inputText = body.text
        finish(true)
    }

    objectName: "numKeyDlg"
    dlgResult: true
    width: 680
    height: 460
    Component.onCompleted: numVm.init(isReadOk, readType)
    onEndSignal: numVm.stopReading()

    NumKeyVm {
        id: numVm
        onSuccessSignal: {
            dialog.isRead = true
            dialog.cardUid = rfid
            dialog.finish(true)
        }
    }

    contentItem: KeyDialogBody {
        id: body
        prompt: dialog.strText
        onTextChanged: dialog.keepOpen()
        onConfirmed: dialog.confirm()
        onAccepted: dialog.confirm()
        onCancelled: dialog.finish(false)
    }
}
