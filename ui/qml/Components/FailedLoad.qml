import QtQuick 2.15

// Stands in the place of what couldn't be read, with a way to try again.
Column {
    id: failed

    property var retry: null

    anchors.centerIn: parent
    objectName: "failedLoad"
    spacing: Theme.spacing

    PlainText {
        anchors.horizontalCenter: parent.horizontalCenter
        text: "读取失败"
        font.pixelSize: Theme.titleSize
        color: Theme.textMuted
    }

    PushButton {
        objectName: "retryButton"
        anchors.horizontalCenter: parent.horizontalCenter
        text: "重试"
        action: () => failed.retry()
    }
}
