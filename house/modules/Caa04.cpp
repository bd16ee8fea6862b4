#include "src/Asked.h"
#include "src/state/RoomDesk.h"

namespace house {
namespace {

constexpr char callFault[] = "CAA_ERR_0001";

/// A guest's call reaches the staff's own devices over the broker.
Reply callStaff(House& house, const Call& call)
{
    const Room& room = roomOfId(house, call.text("roomId"));
    const CallContent* content = house.state.callContents.find(call.text("contId"));
    const int num = call.body["num"].get<int>();
    demand(isInUse(room), callFault, roomHasChanged);
    demand(content, callFault, "呼叫内容不存在");
    demand(num > 0, callFault, "呼叫数量不正确");
    announceRooms(house);
    announce(house, "CALLCHGDATA",
             nlohmann::json{{"roomNo", room.code}, {"content", content->name}, {"num", num}}.dump());
    return Reply::done();
}

const ModuleRegistration registration([](EndpointTable& table) {
    table.post("/caa04/callStaff", "roomId contId num#", callStaff);
});

} // namespace
} // namespace house
