import QtQuick 2.15
import "../Components"

// A yes-or-no question that a page asks.
DialogFrame {
    id: dialog

    property string titleText: ""
    property string contentText: ""

    function exec() {
        wait()
        return dlgResult
    }

    objectName: "confirmDlg"
    width: 540
    height: 320

    contentItem: ConfirmBody {
        title: dialog.titleText
        content: dialog.contentText
        hasIcons: true
        onConfirmed: dialog.finish(true)
        onCancelled: dialog.finish(false)
    }
}
