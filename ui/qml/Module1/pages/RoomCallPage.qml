import QtQuick 2.15
import RoomCallVm 1.0
import "../../Components"

// Calls services to the room, each as often as it is wanted.
RoomPage {
    id: page

    confirmText: "确定呼叫"
    saver: pageVm
    onStarted: pageVm.init(vm.pRoomDetail)

    RoomCallVm {
        id: pageVm
    }

    ChoiceGrid {
        id: services
        objectName: "services"
        anchors.fill: parent
        tileWidth: 540
        cellHeight: 76
        model: pageVm.pRoomCallModel
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

                Text {
                    anchors.left: parent.left
                    anchors.leftMargin: Theme.spacing
                    anchors.right: stepper.left
                    anchors.rightMargin: 8
                    anchors.verticalCenter: parent.verticalCenter
                    height: parent.height - 4
                    verticalAlignment: Text.AlignVCenter
                    text: model.callName
                    textFormat: Text.PlainText
                    wrapMode: Text.Wrap
                    maximumLineCount: 2
                    elide: Text.ElideRight
                    font.family: Pinfang
                    font.pixelSize: 22
                    color: Theme.text
                }

                Stepper {
                    id: stepper
                    anchors.right: parent.right
                    anchors.rightMargin: 6
                    anchors.verticalCenter: parent.verticalCenter
                    nameSuffix: "_" + index
                    value: model.num
                    onLowered: pageVm.pRoomCallModel.sub(index)
                    onRaised: pageVm.pRoomCallModel.add(index)
                }
            }
        }
    }
}
