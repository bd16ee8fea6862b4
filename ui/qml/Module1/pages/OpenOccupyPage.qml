import QtQuick 2.15
import OpenOccupyVm 1.0
import "../../Components"
import "../../../js/Func.js" as JsFunc

// Marks the room as specially occupied. Text comes from the system's keyboard.
RoomPage {
    id: page

    confirmText: "确  定"
    saver: pageVm
    onStarted: pageVm.init(page.roomId)
    onConfirmed: pageVm.remark = remarkArea.text

    OpenOccupyVm {
        id: pageVm
    }

    CaptionedBox {
        id: kindBox
        width: (parent.width - Theme.spacing) / 2
        height: parent.height
        caption: "特殊占用"

        PickGrid {
            objectName: "occupyGrid"
            anchors.fill: parent
            textRole: "occupyName"
            namePrefix: "occupy_"
            model: pageVm.pOccupyListModel
            onChosen: JsFunc.delay15(() => pageVm && pageVm.checkOccupy(index))
        }
    }

    CaptionedBox {
        anchors.left: kindBox.right
        anchors.leftMargin: Theme.spacing
        anchors.right: parent.right
        height: parent.height
        caption: "备注信息"

        RemarkArea {
            id: remarkArea
            anchors.fill: parent
        }
    }
}
