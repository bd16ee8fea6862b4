import QtQuick 2.15
import MainClass 1.0
import "../Components"
import "../../js/Glyphs.js" as Glyphs

// Shown until the terminal has its lines and its system-init record.
Rectangle {
    gradient: Gradient {
        GradientStop { position: 0; color: Theme.backgroundFrom }
        GradientStop { position: 1; color: Theme.backgroundTo }
    }

    Column {
        anchors.centerIn: parent
        spacing: Theme.spacing * 2

        BusyIndicator {
            anchors.horizontalCenter: parent.horizontalCenter
        }

        Text {
            objectName: "startingText"
            text: "系统启动中........."
            font.family: Pinfang
            font.pixelSize: Theme.titleSize
            color: Theme.text
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
