import QtQuick 2.15
import GlobalConfig 1.0
import Modules 1.0
import "../Components"

// Below the tiles: settings, the day's sums, a person's sums, and the vendor block, which opens the line dialog.
Item {
    id: row

    signal chosen(string code)
    signal linesAsked()

    implicitHeight: 96

    Row {
        anchors.left: parent.left
        anchors.leftMargin: Theme.spacing * 2
        anchors.verticalCenter: parent.verticalCenter
        spacing: Theme.spacing

        Repeater {
            model: Modules.buttons

            Tappable {
                objectName: "bottom_" + modelData.code
                visible: !modelData.needsRight || GlobalConfig.isVisSysConfig
                width: 72
                height: 72
                radius: 36
                label: modelData.name
                restColor: Theme.accent
                pressedColor: Theme.accentPressed
                onClicked: row.chosen(modelData.code)

                Image {
                    anchors.centerIn: parent
                    width: 40
                    height: 40
                    source: "qrc:/images/" + modelData.image
                    smooth: true
                }
            }
        }
    }

    Tappable {
        objectName: "vendorBlock"
        anchors.right: parent.right
        anchors.rightMargin: Theme.spacing * 2
        anchors.verticalCenter: parent.verticalCenter
        width: 300
        height: 72
        label: "链路切换"
        restColor: Theme.glass
        onClicked: row.linesAsked()

        Image {
            id: logo
            anchors.left: parent.left
            anchors.leftMargin: 12
            anchors.verticalCenter: parent.verticalCenter
            visible: GlobalConfig.isVisSysConfig
            width: visible ? 48 : 0
            height: 48
            source: "qrc:/images/logo.png"
            fillMode: Image.PreserveAspectFit
        }

        Column {
            anchors.left: logo.right
            anchors.leftMargin: 12
            anchors.right: parent.right
            anchors.rightMargin: 8
            anchors.verticalCenter: parent.verticalCenter

            Repeater {
                model: GlobalConfig.vendorText

                PlainText {
                    width: parent.width
                    text: modelData
                    font.pixelSize: 18
                }
            }
        }
    }
}
