import QtQuick 2.15
import RestChgMassVm 1.0

// Makes the rest room a massage room; one of the cards takes over what was consumed.
MassRoomPage {
    id: page

    confirmText: "确定转房"
    vm: RestChgMassVm {}
    start: () => vm.init(page.roomId, page.roomNo, page.room)
    emptyText: "请先添加手牌"
    checkText: "消费记入"
    check: index => vm.checkCard(index)
}
