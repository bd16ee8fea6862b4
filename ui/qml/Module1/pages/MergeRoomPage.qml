import QtQuick 2.15
import QtQuick.Controls 2.15
import MergeRoomVm 1.0
import "../../Components"

// Joins the room with others, shown by the groups that they are in.
RoomPage {
    id: page

    confirmText: "确定并房"
    vm: MergeRoomVm {}
    start: () => vm.init(page.roomId, page.roomNo)

    SearchAsk {
        id: search
        work: page.work
        search: roomNo => page.vm.getRoomList(roomNo)
    }

    ListView {
        id: groups
        objectName: "groups"
        anchors.left: search.right
        anchors.leftMargin: Theme.spacing
        anchors.right: parent.right
        height: parent.height
        clip: true
        spacing: Theme.spacing
        boundsBehavior: Flickable.StopAtBounds
        model: page.vm.pRoomModel
        ScrollBar.vertical: ListScrollBar {
            id: bar
        }
        delegate: MergeGroup {
            objectName: "group_" + model.key
            width: groups.width - bar.width
            name: model.name
            rooms: model.roomModel
        }

        EmptyText {
            list: groups
            text: "没有可选的房间"
        }
    }
}
