import QtQuick 2.15
import QtQuick.Controls 2.15
import Module5Vm 1.0
import ChecksVm 1.0
import "../Components"
import "../../js/Ask.js" as Ask

// The settings of this machine, and below them the technician's workbench.
Item {
    id: page

    readonly property int columns: 4
    readonly property int cellWidth: Math.floor((scroll.width - bar.width - (columns + 1) * Theme.gap) / columns)

    function spanned(count) {
        return count * cellWidth + (count - 1) * Theme.gap
    }

    // Asked by whoever closes the page. A test that runs needs it for a few seconds more.
    function mayLeave() {
        return checks.isEnabled && (!settings.isChanged || Ask.isConfirmed("有未保存的修改，离开会丢失。确定离开吗？"))
    }

    function restart() {
        const question = settings.isChanged ? "有未保存的修改，重启会丢失。确定重启程序吗？" : "确定现在重启程序吗？"
        if (Ask.isConfirmed(question) && settings)
            settings.restart()
    }

    function enter(property, prompt) {
        const typed = Ask.count(prompt)
        if (typed !== undefined && settings)
            settings.enterNumber(property, typed)
    }

    function choose(title, model, property, note) {
        const picked = chooser.choose(title, model, settings[property], note)
        if (picked >= 0 && settings)
            settings[property] = picked
    }

    objectName: "Module5"

    Module5Vm {
        id: settings
    }

    ChecksVm {
        id: checks
    }

    ChoiceDialog {
        id: chooser
    }

    Flickable {
        id: scroll
        objectName: "settingsScroll"
        anchors.left: parent.left
        anchors.right: parent.right
        anchors.top: parent.top
        anchors.bottom: foot.top
        anchors.leftMargin: Theme.gap
        anchors.topMargin: Theme.gap
        clip: true
        boundsBehavior: Flickable.StopAtBounds
        contentHeight: body.height + Theme.gap
        ScrollBar.vertical: ListScrollBar {
            id: bar
        }

        Column {
            id: body
            width: scroll.width - bar.width
            spacing: Theme.spacing

            SettingGroups {
                width: parent.width
                vm: settings
                form: page
            }

            Workbench {
                width: parent.width
                vm: checks
                settings: settings
                form: page
            }
        }
    }

    Rectangle {
        id: foot
        anchors.left: parent.left
        anchors.right: parent.right
        anchors.bottom: parent.bottom
        height: Theme.px(80)
        color: Theme.surface

        PlainText {
            objectName: "settingsState"
            anchors.left: parent.left
            anchors.leftMargin: Theme.spacing
            anchors.right: again.left
            anchors.verticalCenter: parent.verticalCenter
            text: settings.isChanged ? "有未保存的修改" : settings.needsRestart ? "已保存的参数要重启程序后才生效" : "参数没有修改"
            font.pixelSize: Theme.headSize
            color: settings.isChanged ? Theme.refusal : settings.needsRestart ? Theme.danger : Theme.textMuted
        }

        PushButton {
            id: again
            objectName: "restartButton"
            anchors.right: save.left
            anchors.rightMargin: Theme.spacing
            anchors.verticalCenter: parent.verticalCenter
            visible: settings.needsRestart
            width: visible ? implicitWidth : 0
            role: "plain"
            pixelSize: Theme.headSize
            text: "重启程序"
            action: () => page.restart()
        }

        PushButton {
            id: save
            objectName: "saveButton"
            anchors.right: parent.right
            anchors.rightMargin: Theme.spacing
            anchors.verticalCenter: parent.verticalCenter
            width: Theme.px(220)
            text: "保  存"
            action: () => {
                Qt.inputMethod.commit()
                settings.save()
            }
        }
    }
}
