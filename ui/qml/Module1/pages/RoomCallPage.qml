import QtQuick 2.15
import RoomCallVm 1.0
import "../../Components"

// Calls services to the room, each as often as it is wanted.
RoomPage {
    id: page

    confirmText: "确定呼叫"
    vm: RoomCallVm {}
    start: () => vm.init(page.room)

    ChoiceGrid {
        id: services
        objectName: "services"
        anchors.fill: parent
        tileWidth: Theme.px(540)
        cellHeight: Theme.keyHeight + 2 * Theme.gap
        model: page.vm.pRoomCallModel
        delegate: Item {
            width: services.cellWidth
            height: services.cellHeight

            Rectangle {
                anchors.fill: parent
                anchors.rightMargin: 8
                anchors.bottomMargin: 8
                radius: Theme.radius
                color: Theme.surface
                border.color: Theme.line

                PlainText {
                    anchors.left: parent.left
                    anchors.leftMargin: Theme.spacing
                    anchors.right: stepper.left
                    anchors.rightMargin: 8
                    anchors.verticalCenter: parent.verticalCenter
                    height: parent.height - 4
                    verticalAlignment: Text.AlignVCenter
                    text: model.callName
                    wrapMode: Text.Wrap
                    maximumLineCount: 2
                    font.pixelSize: Theme.headSize
                }

                Stepper {
                    id: stepper
                    anchors.right: parent.right
                    anchors.rightMargin: 6
                    anchors.verticalCenter: parent.verticalCenter
                    nameSuffix: "_" + index
                    value: model.num
                    onLowered: services.model.sub(index)
                    onRaised: services.model.add(index)
                }
            }
        }
    }
}
