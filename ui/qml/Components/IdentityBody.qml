import QtQuick 2.15
import MyMessage 1.0

// Asks who somebody is, in two steps: his number, then his password. Where a reader listens a card does as well, at any
// time.
KeyDialogBody {
    id: body

    property bool isPasswd: false
    property string userNo: ""
    property string purpose: "" // what it is asked for

    title: isPasswd ? (purpose === "" ? "" : purpose + " · ") + "工号 " + userNo : purpose

    signal entered(string password)

    prompt: isPasswd ? "请输入密码" : "请刷入或输入员工卡"
    echoMode: isPasswd ? TextInput.Password : TextInput.Normal
    onConfirmed: {
        if (text === "") {
            MyMessage.showError("用户名或密码不能为空")
        } else if (isPasswd) {
            entered(text)
        } else {
            userNo = text
            clear()
            isPasswd = true
        }
    }
}
