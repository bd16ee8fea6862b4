import QtQuick 2.15
import "../../Components"

// The room to move to, and whether the one that is left is to be cleaned; the page's view-model keeps both.
RoomChooser {
    id: chooser

    property RoomPage page: null

    model: page.vm.pEmptyRoomModel
    work: page.work
    search: roomNo => page.vm.getRoomInfo(roomNo)
    choose: index => page.vm.selectRoom(index)

    CheckMark {
        objectName: "needCleanButton"
        width: parent.width
        text: "原房间需要清扫"
        isChecked: chooser.page.vm.isNeedClean
        onClicked: chooser.page.vm.isNeedClean = !isChecked
    }
}
