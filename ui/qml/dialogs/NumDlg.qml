import QtQuick 2.15
import MyMessage 1.0
import "../Components"

// Asks for a quantity; what it is worth is judged by the caller.
WindowFrame {
    id: dialog

    property string strText: "请输入数量"
    property alias mostDigits: body.mostDigits

    function exec() {
        wait()
        return {dlgResult: dlgResult, num: body.text}
    }

    objectName: "numDlg"
    dlgResult: true
    width: 680
    height: 460

    KeyDialogBody {
        id: body
        anchors.fill: parent
        prompt: dialog.strText
        isDecimal: true
        onConfirmed: {
            if (text === "")
                MyMessage.showMessage("不能为空", 2)
            else
                dialog.finish(true)
        }
        onCancelled: dialog.finish(false)
    }
}
