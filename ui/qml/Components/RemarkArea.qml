import QtQuick 2.15
import QtQuick.Controls 2.15

// A remark of any length, on as many lines as it takes. Text comes from the system's keyboard.
ScrollView {
    id: view

    property alias text: area.text

    clip: true

    TextArea {
        id: area
        objectName: "remarkArea"
        placeholderText: "请输入备注信息"
        placeholderTextColor: Theme.textFaint
        wrapMode: TextEdit.Wrap
        font.family: Pinfang
        font.pixelSize: Theme.headSize
        color: Theme.text
        background: Rectangle {
            radius: Theme.radius
            color: Theme.surface
            border.color: area.activeFocus ? Theme.accent : Theme.line
        }
    }
}
