import QtQuick 2.15
import OpenRestVm 1.0

// Opens the room as a rest room.
RestRoomPage {
    id: page

    confirmText: "确定开房"
    vm: OpenRestVm {}
    start: () => vm.init(page.roomId, page.roomNo)
    cardCaption: "手牌"
    choosePlan: index => vm.checkPlan(index)
}
