import QtQuick 2.15
import RoomConsumeVm 1.0
import "../../Components"

// What was consumed in the room.
RoomPage {
    id: page

    vm: RoomConsumeVm {}
    start: () => vm.init(page.roomId)

    DataTable {
        anchors.fill: parent
        model: page.vm.pRoomConsumeModel
        emptyText: "没有消费"
        columns: [
            {title: "手牌号", role: "cardNo", share: 14},
            {title: "项目名称", role: "itemName", share: 25},
            {title: "数量", role: "num", share: 8, isNumber: true},
            {title: "单价", role: "price", share: 10, isNumber: true},
            {title: "消费金额", role: "amount", share: 12, isNumber: true},
            {title: "业绩人", role: "staffNo", share: 11},
            {title: "推钟人", role: "pushNo", share: 11},
            {title: "消费时间", role: "createTime", share: 21}
        ]
    }
}
