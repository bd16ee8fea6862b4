import QtQuick 2.15
import "../Components"

// A choice among work areas; one with an empty id is a choice like the others.
TitledDialog {
    id: dialog

    property var areaList: null
    property string areaId: ""
    property string areaName: ""

    function exec() {
        wait()
        return {dlgResult: dlgResult, areaId: areaId, areaName: areaName}
    }

    objectName: "workAreaDlg"
    title: "区域选择"
    hasCross: true
    width: 640
    height: 400

    GridView {
        objectName: "areaGrid"
        anchors.fill: parent
        anchors.leftMargin: 5
        anchors.topMargin: 8
        clip: true
        cellWidth: 210
        cellHeight: 80
        model: dialog.areaList
        delegate: Item {
            width: 210
            height: 80

            CheckTile {
                objectName: "area_" + model.areaId
                anchors.centerIn: parent
                width: 200
                height: 70
                text: model.areaName
                onClicked: {
                    dialog.areaId = model.areaId
                    dialog.areaName = model.areaName
                    dialog.finish(true)
                }
            }
        }
    }
}
