import QtQuick 2.15
import CloudVm 1.0
import GlobalConfig 1.0
import "../Components"
import "../../js/Func.js" as JsFunc

// Measures the lines to the back end and lets the user switch.
TitledDialog {
    id: dialog

    function exec() {
        wait()
        return {dlgResult: dlgResult}
    }

    objectName: "cloudDlg"
    title: "链路切换"
    hasBack: true
    width: Math.min(Theme.px(900), root.width - 80)
    height: Math.min(Theme.px(640), root.height - 80)
    Component.onCompleted: JsFunc.timerOnce(GlobalConfig.initDelyTime, () => cloudVm && cloudVm.init())

    CloudVm {
        id: cloudVm
    }

    ListView {
        id: platforms
        objectName: "platforms"
        anchors.left: parent.left
        anchors.right: parent.right
        anchors.top: parent.top
        anchors.bottom: buttons.top
        anchors.margins: Theme.spacing
        clip: true
        spacing: Theme.spacing
        model: cloudVm.pPlatModel
        delegate: CloudPlatform {
            readonly property int platform: index

            width: platforms.width
            name: model.name
            icon: model.icon
            lines: model.lineModel
            onChosen: JsFunc.delay15(() => cloudVm && cloudVm.onChecked(platform, line))
        }
    }

    Row {
        id: buttons
        anchors.horizontalCenter: parent.horizontalCenter
        anchors.bottom: parent.bottom
        anchors.bottomMargin: Theme.spacing
        spacing: Theme.spacing * 2

        PushButton {
            objectName: "saveButton"
            width: Theme.px(220)
            text: "立即切换"
            action: () => {
                if (cloudVm.save())
                    dialog.finish(true)
            }
        }

        PushButton {
            objectName: "checkButton"
            width: Theme.px(220)
            role: "plain"
            text: "全部检测"
            action: () => cloudVm.checkLines()
        }
    }
}
