import QtQuick 2.15
import Fps 1.0
import GlobalConfig 1.0
import MainClass 1.0
import "../Components"
import "../../js/Glyphs.js" as Glyphs

// Store, frame rate and clock; with a module open the way back, the operator and the lock, else the way out. While the
// broker is away it says so, and since when what others change is missing.
Item {
    id: header

    property bool isModuleOpen: false
    property double awaySince: 0 // ms

    signal back()
    signal lock()

    height: Theme.headerHeight

    Fps {
        id: counter
    }

    Connections {
        target: MainClass
        function onIsBrokerAwayChanged() {
            header.awaySince = Date.now()
        }
    }

    Row {
        id: left
        anchors.left: parent.left
        anchors.leftMargin: Theme.spacing
        anchors.verticalCenter: parent.verticalCenter
        spacing: 8
        visible: header.isModuleOpen

        IconButton {
            objectName: "returnButton"
            iconText: Glyphs.back
            label: "返回"
            onClicked: header.back()
        }

        PlainText {
            objectName: "operatorText"
            anchors.verticalCenter: parent.verticalCenter
            width: Math.min(implicitWidth, header.width * 0.22)
            text: GlobalConfig.userInfo.name + "[" + GlobalConfig.userInfo.code + "]"
        }
    }

    PlainText {
        objectName: "storeName"
        anchors.centerIn: parent
        width: Math.min(implicitWidth, header.width * 0.36)
        text: GlobalConfig.storeName + "        FPS: " + counter.fps
    }

    Row {
        id: right
        anchors.right: parent.right
        anchors.rightMargin: Theme.spacing
        anchors.verticalCenter: parent.verticalCenter
        spacing: 8

        Rectangle {
            anchors.verticalCenter: parent.verticalCenter
            objectName: "awayMark"
            visible: MainClass.isBrokerAway && awayText.text !== ""
            width: awayText.width + 16
            height: Theme.px(32)
            radius: 6
            color: Theme.danger

            PlainText {
                id: awayText
                anchors.centerIn: parent
                font.pixelSize: Theme.captionSize
                color: Theme.textOnColor
            }
        }

        IconButton {
            objectName: "lockButton"
            visible: header.isModuleOpen
            iconText: GlobalConfig.isCurrentModeLocked ? Glyphs.lock : Glyphs.lockOpen
            iconColor: GlobalConfig.isCurrentModeLocked ? Theme.danger : Theme.text
            label: GlobalConfig.isCurrentModeLocked ? "解锁" : "锁定"
            onClicked: header.lock()
        }

        PlainText {
            id: clock
            anchors.verticalCenter: parent.verticalCenter
        }

        IconButton {
            objectName: "closeButton"
            visible: !header.isModuleOpen
            iconText: Glyphs.close
            label: "关闭"
            onClicked: Qt.quit()
        }
    }

    Timer {
        interval: 1000
        running: true
        repeat: true
        triggeredOnStart: true
        onTriggered: {
            clock.text = Qt.formatDateTime(new Date(), "yyyy-MM-dd hh:mm:ss")
            // One that is back within seconds was no outage.
            const seconds = MainClass.isBrokerAway ? Math.floor((Date.now() - header.awaySince) / 1000) : 0
            awayText.text = seconds < 3 ? "" : "实时中断 " + (seconds < 60 ? seconds + "秒" : Math.floor(seconds / 60) + "分")
        }
    }
}
