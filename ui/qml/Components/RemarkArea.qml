import QtQuick 2.15
import QtQuick.Controls 2.15

// A remark of any length, on as many lines as it takes. Text comes from the system's keyboard, or from phrases for
// what is said most, since a kiosk may have no keyboard.
Item {
    id: remark

    property alias text: area.text
    property alias prompt: area.placeholderText
    property bool hasPhrases: true

    property var phrases: ["VIP 客人", "需要安静", "请勿打扰", "加毛巾", "加茶水", "空调调高", "空调调低", "有小孩", "行动不便"]

    ScrollView {
        anchors.left: parent.left
        anchors.right: parent.right
        anchors.top: parent.top
        anchors.bottom: keys.top
        anchors.bottomMargin: keys.visible ? Theme.gap : 0
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

    Flow {
        id: keys
        anchors.left: parent.left
        anchors.right: parent.right
        anchors.bottom: parent.bottom
        visible: remark.hasPhrases
        height: visible ? implicitHeight : 0
        spacing: Theme.gap

        Repeater {
            model: remark.phrases.concat(["清空"])

            PushButton {
                objectName: "phrase_" + modelData
                implicitWidth: Math.max(Theme.px(100), modelData.length * Theme.px(24) + Theme.spacing)
                implicitHeight: Theme.touchSize
                role: "plain"
                pixelSize: Theme.textSize
                text: modelData
                onClicked: {
                    Qt.inputMethod.commit()
                    if (modelData === "清空")
                        area.clear()
                    else
                        area.text += (area.text === "" ? "" : "，") + modelData
                }
            }
        }
    }
}
