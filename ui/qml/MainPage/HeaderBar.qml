import QtQuick 2.15
import Fps 1.0
import GlobalConfig 1.0
import "../Components"
import "../../js/Glyphs.js" as Glyphs

// Store, frame rate and clock; with a module open the way back, the operator and the lock, else the way out.
Item {
    id: header

    property bool isModuleOpen: false

    signal back()
    signal lock()

    height: Theme.headerHeight

    Fps {
        id: counter
    }

    Row {
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

        Text {
            objectName: "operatorText"
            anchors.verticalCenter: parent.verticalCenter
            text: GlobalConfig.userInfo.name + "[" + GlobalConfig.userInfo.code + "]"
            textFormat: Text.PlainText
            font.family: Pinfang
            font.pixelSize: Theme.textSize
            color: Theme.text
        }
    }

    Text {
        objectName: "storeName"
        anchors.centerIn: parent
        text: GlobalConfig.storeName + "        FPS: " + counter.fps
        textFormat: Text.PlainText
        font.family: Pinfang
        font.pixelSize: Theme.textSize
        color: Theme.text
    }

    Row {
        anchors.right: parent.right
        anchors.rightMargin: Theme.spacing
        anchors.verticalCenter: parent.verticalCenter
        spacing: 8

        IconButton {
            objectName: "lockButton"
            visible: header.isModuleOpen
            iconText: GlobalConfig.isCurrentModeLocked ? Glyphs.lock : Glyphs.lockOpen
            iconColor: GlobalConfig.isCurrentModeLocked ? Theme.danger : Theme.text
            label: GlobalConfig.isCurrentModeLocked ? "解锁" : "锁定"
            onClicked: header.lock()
        }

        Text {
            id: clock
            anchors.verticalCenter: parent.verticalCenter
            font.family: Pinfang
            font.pixelSize: Theme.textSize
            color: Theme.text
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
        onTriggered: clock.text = Qt.formatDateTime(new Date(), "yyyy-MM-dd hh:mm:ss")
    }
}
