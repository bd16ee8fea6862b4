import QtQuick 2.15
import GlobalConfig 1.0
import "../../Components"
import "../../DlgManager.js" as Dlg
import "../../../js/Func.js" as JsFunc
import "../../../js/Glyphs.js" as Glyphs

// Asks for a number by keys, its text being the prompt, and hands on what was typed.
PushButton {
    id: button

    signal entered(string number)

    width: 220
    iconText: Glyphs.search
    role: "plain"
    pixelSize: 22
    onClicked: JsFunc.singly(GlobalConfig.dlgDeplyTime, () => button && dlg.work(() => {
        const answer = Dlg.showDialog("numKeyDlg", {strText: button.text})
        if (button && answer !== undefined && answer.dlgResult)
            button.entered(answer.inputText)
    }))
}
