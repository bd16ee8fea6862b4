import QtQuick 2.15
import MassChgRestVm 1.0

// Makes the massage room a rest room.
RestRoomPage {
    id: page

    confirmText: "确定开房"
    vm: MassChgRestVm {}
    start: () => vm.init(page.roomId, page.roomNo, page.room)
    cardCaption: "房间手牌"
    choosePlan: index => vm.selectPlan(index)
}
