import QtQuick 2.15
import Fps 1.0
import GlobalConfig 1.0
import "../Components"
import "../../js/Glyphs.js" as Glyphs

// Store, frame rate, clock and the way out.
Item {
    height: Theme.headerHeight

    Fps {
        id: counter
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

    Text {
        id: clock
        anchors.right: closeButton.left
        anchors.rightMargin: Theme.spacing
        anchors.verticalCenter: parent.verticalCenter
        font.family: Pinfang
        font.pixelSize: Theme.textSize
        color: Theme.text
    }

    Timer {
        interval: 1000
        running: true
        repeat: true
        triggeredOnStart: true
        onTriggered: clock.text = Qt.formatDateTime(new Date(), "yyyy-MM-dd hh:mm:ss")
    }

    IconButton {
        id: closeButton
        objectName: "closeButton"
        anchors.right: parent.right
        anchors.rightMargin: Theme.spacing
        anchors.top: parent.top
        iconText: Glyphs.close
        label: "关闭"
        onClicked: Qt.quit()
    }
}
