import QtQuick 2.15
import MsgConfirmVm 1.0
import "../Components"

// A yes-or-no question that a view-model asks, above whatever is open.
WindowFrame {
    id: dialog

    property string titleText: ""
    property string contentText: ""

    function exec() {
        wait()
        return dlgResult
    }

    objectName: "msgConfirmDlg"
    width: 540
    height: 320

    MsgConfirmVm {}

    ConfirmBody {
        anchors.fill: parent
        title: dialog.titleText
        content: dialog.contentText
        onConfirmed: dialog.finish(true)
        onCancelled: dialog.finish(false)
    }
}
