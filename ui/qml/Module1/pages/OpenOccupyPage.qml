import QtQuick 2.15
import OpenOccupyVm 1.0
import "../../Components"

// Marks the room as specially occupied.
RoomPage {
    id: page

    confirmText: "确  定"
    vm: OpenOccupyVm {}
    start: () => vm.init(page.roomId)

    Row {
        anchors.fill: parent
        spacing: Theme.spacing

        CaptionedBox {
            width: (parent.width - Theme.spacing) / 2
            height: parent.height
            caption: "特殊占用"

            PickGrid {
                objectName: "occupyGrid"
                anchors.fill: parent
                textRole: "occupyName"
                namePrefix: "occupy_"
                model: page.vm.pOccupyListModel
                choose: index => page.vm.checkOccupy(index)
            }
        }

        CaptionedBox {
            width: parent.width - x
            height: parent.height
            caption: "备注信息"

            RemarkArea {
                anchors.fill: parent
                onTextChanged: page.vm.remark = text
            }
        }
    }
}
