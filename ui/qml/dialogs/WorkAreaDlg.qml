import QtQuick 2.15
import "../Components"
import "../../js/Glyphs.js" as Glyphs

// A choice among work areas; one with an empty id is a choice like the others.
DialogFrame {
    id: dialog

    property var areaList: null
    property string areaId: ""
    property string areaName: ""

    function exec() {
        wait()
        return {dlgResult: dlgResult, areaId: areaId, areaName: areaName}
    }

    objectName: "workAreaDlg"
    width: 640
    height: 400

    contentItem: Item {
        DialogHead {
            id: head
            anchors.left: parent.left
            anchors.right: parent.right
            hasBack: false
            title: "区域选择"

            Item {
                objectName: "closeButton"
                anchors.right: parent.right
                anchors.rightMargin: 8
                anchors.verticalCenter: parent.verticalCenter
                width: Theme.touchSize
                height: Theme.touchSize
                Accessible.role: Accessible.Button
                Accessible.name: "关闭"

                IconText {
                    anchors.centerIn: parent
                    iconText: Glyphs.close
                    pixelSize: 36
                    iconBold: true
                    iconColor: Theme.textMuted
                }

                MouseArea {
                    anchors.fill: parent
                    onClicked: dialog.finish(false)
                }
            }
        }

        GridView {
            objectName: "areaGrid"
            anchors.left: parent.left
            anchors.right: parent.right
            anchors.leftMargin: 5
            anchors.top: head.bottom
            anchors.bottom: parent.bottom
            anchors.topMargin: 8
            clip: true
            cellWidth: 210
            cellHeight: 80
            model: dialog.areaList
            delegate: Item {
                width: 210
                height: 80

                Rectangle {
                    objectName: "area_" + model.areaId
                    anchors.centerIn: parent
                    width: 200
                    height: 70
                    radius: Theme.radius
                    color: area.pressed ? Theme.keyPressed : Theme.surface
                    border.color: Theme.line
                    Accessible.role: Accessible.Button
                    Accessible.name: model.areaName

                    Text {
                        anchors.fill: parent
                        anchors.margins: 10
                        horizontalAlignment: Text.AlignHCenter
                        verticalAlignment: Text.AlignVCenter
                        text: model.areaName
                        textFormat: Text.PlainText
                        elide: Text.ElideRight
                        font.family: Pinfang
                        font.pixelSize: Theme.textSize
                        color: Theme.text
                    }

                    MouseArea {
                        id: area
                        anchors.fill: parent
                        onClicked: {
                            dialog.areaId = model.areaId
                            dialog.areaName = model.areaName
                            dialog.finish(true)
                        }
                    }
                }
            }
        }
    }
}
