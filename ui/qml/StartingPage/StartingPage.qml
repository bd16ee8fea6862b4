import QtQuick 2.15
import MainClass 1.0
import "../Components"
import "../DlgManager.js" as Dlg
import "../../js/Glyphs.js" as Glyphs

// Shown until the terminal has its lines and its system-init record. Where that fails it says why, and offers another
// try and the line dialog.
Rectangle {
    id: page

    readonly property bool isFailed: MainClass.startFailure !== ""

    gradient: Gradient {
        GradientStop { position: 0; color: Theme.backgroundFrom }
        GradientStop { position: 1; color: Theme.backgroundTo }
    }

    Column {
        anchors.centerIn: parent
        width: parent.width * 0.8
        spacing: Theme.spacing * 2

        BusyIndicator {
            anchors.horizontalCenter: parent.horizontalCenter
            visible: !page.isFailed
        }

        PlainText {
            objectName: "startingText"
            width: parent.width
            horizontalAlignment: Text.AlignHCenter
            wrapMode: Text.Wrap
            text: page.isFailed ? "启动失败: " + MainClass.startFailure : "系统启动中........."
            font.pixelSize: Theme.titleSize
        }

        Row {
            anchors.horizontalCenter: parent.horizontalCenter
            spacing: Theme.spacing * 2
            visible: page.isFailed

            PushButton {
                objectName: "retryButton"
                width: Theme.px(180)
                text: "重试"
                action: () => MainClass.init()
            }

            PushButton {
                objectName: "linesButton"
                width: Theme.px(180)
                role: "plain"
                text: "线路"
                action: () => {
                    const answer = Dlg.showDialog("cloudDlg", {})
                    if (answer !== undefined && answer.dlgResult)
                        MainClass.init()
                }
            }
        }
    }

    IconButton {
        objectName: "closeButton"
        anchors.right: parent.right
        anchors.top: parent.top
        anchors.margins: Theme.spacing
        iconText: Glyphs.close
        label: "关闭"
        onClicked: Qt.quit()
    }

    Timer {
        id: initTimer
        interval: 500
        onTriggered: MainClass.init()
    }

    Component.onCompleted: initTimer.start()
}
