import QtQuick 2.15
import InputOrReadVm 1.0
import "../Components"

// Asks who acts: number and password in two steps, or a staff card at any time.
WindowFrame {
    id: dialog

    property alias isPasswd: body.isPasswd
    property alias isNumKey: body.isNumKey
    property alias isUpper: body.isUpper
    property string pwd: ""
    property string cardUid: ""
    property bool isRead: false

    function exec() {
        wait()
        return {dlgResult: dlgResult, user: body.userNo, pwd: pwd, cardUid: cardUid, isRead: isRead}
    }

    objectName: "inputOrReadDlg"
    dlgResult: true
    width: 680
    height: 464

    onEndSignal: readVm.stopReading()

    InputOrReadVm {
        id: readVm
        onSuccessSignal: {
            dialog.isRead = true
            dialog.cardUid = rfid
            dialog.finish(true)
        }
    }

    IdentityBody {
        id: body
        anchors.fill: parent
        onEntered: {
            dialog.pwd = password
            dialog.finish(true)
        }
        onCancelled: dialog.finish(false)
    }
}
