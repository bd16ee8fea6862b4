import QtQuick 2.15
import QtQuick.Controls 2.15
import MergeRoomVm 1.0
import "../../Components"

// Joins the room with others, shown by the groups that they are in.
RoomPage {
    id: page

    confirmText: "确定并房"
    saver: pageVm
    onStarted: pageVm.init(page.roomId, page.roomNo)

    MergeRoomVm {
        id: pageVm
    }

    AskButton {
        id: search
        objectName: "searchButton"
        text: "请输入房间号"
        onEntered: pageVm.getRoomList(number)
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
        model: pageVm.pRoomModel
        ScrollBar.vertical: ListScrollBar {
            id: bar
        }
        delegate: MergeGroup {
            objectName: "group_" + model.key
            width: groups.width - bar.width
            name: model.name
            rooms: model.roomModel
        }

        Text {
            anchors.centerIn: parent
            visible: groups.count === 0
            text: "没有可选的房间"
            font.family: Pinfang
            font.pixelSize: Theme.textSize
            color: Theme.textMuted
        }
    }
}
