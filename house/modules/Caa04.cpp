#include "src/Lookup.h"

namespace house {
namespace {

/// A guest's call reaches the staff's own devices over the broker; the house only counts it.
Reply callStaff(House& house, const Call& call)
{
    Room& room = roomAsked(house, call, "roomId");
    if (!isInUse(room))
        refuse("CAA_ERR_0001", roomHasChanged);
    const CallContent* content = house.state.callContents.find(call.text("contId"));
    if (!content)
        refuse("CAA_ERR_0001", "呼叫内容不存在");
    const int num = call.body["num"].get<int>();
    if (num < 1)
        refuse("CAA_ERR_0001", "呼叫数量不正确");
    room.callCount += num;
    announceRooms(house);
    announce(house, "CALLCHGDATA",
             nlohmann::json{{"roomNo", room.code}, {"content", content->name}, {"num", num}}.dump());
    return Reply::done();
}

const ModuleRegistration registration([](EndpointTable& table) {
    table.post("/caa04/callStaff", asked(callStaff))
        .needs("roomId", Kind::Text)
        .needs("contId", Kind::Text)
        .needs("num", Kind::Number);
});

} // namespace
} // namespace house
