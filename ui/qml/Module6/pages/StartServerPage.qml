import QtQuick 2.15
import StartServerVm 1.0
import "../../Components"

// Starts the technician's clock by one button.
Item {
    id: page

    property QtObject staff: null
    property var close: null

    function begin() {
        if (start.startServer() && page)
            page.close()
    }

    objectName: "StartServerPage"
    Component.onCompleted: start.init(staff)

    StartServerVm {
        id: start
    }

    Rectangle {
        anchors.centerIn: parent
        width: Theme.px(720)
        height: Theme.px(460)
        radius: Theme.radius
        color: Theme.surface
        border.color: Theme.line

        PlainText {
            objectName: "staffText"
            x: Theme.spacing
            y: Theme.px(40)
            width: parent.width - 2 * x
            horizontalAlignment: Text.AlignHCenter
            text: "工号:  " + start.staffNo + "  " + start.staffName
            leastSize: Theme.leastSize
            font.pixelSize: Theme.px(34)
        }

        PlainText {
            objectName: "stateText"
            y: Theme.px(110)
            width: parent.width
            horizontalAlignment: Text.AlignHCenter
            text: "待钟....."
            font.pixelSize: Theme.px(44)
            color: Theme.textMuted
        }

        DeedButton {
            objectName: "startButton"
            anchors.horizontalCenter: parent.horizontalCenter
            anchors.bottom: parent.bottom
            anchors.bottomMargin: Theme.px(44)
            width: Theme.px(460)
            height: Theme.px(180)
            enabled: start.isEnabled
            pixelSize: Theme.px(52)
            text: "开始服务"
            note: "现在开始计时，项目下钟时再录"
            action: () => page.begin()
        }
    }
}
