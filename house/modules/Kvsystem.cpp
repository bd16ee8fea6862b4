#include "src/House.h"
#include "src/Refusal.h"

namespace house {
namespace {

/// The one kind of line list that a touch terminal asks for.
constexpr int touchTerminalLines = 2;

Reply getSysApiReqUrls(House& house, const Call& call)
{
    demand(call.body["type"] == touchTerminalLines, "LINE_ERR_0001", "线路类型不存在");
    demand(house.seed.terminalByAuthCode(call.text("tAuthCode")), "TERMINAL_ERR_0002",
           "终端编码未登记，请联系管理员");
    return Reply::with(house.seed.document["lines"]);
}

Reply getSysMqttInfo(House& house, const Call&) { return Reply::with(house.seed.document["mqttInfo"]); }

const ModuleRegistration registration([](EndpointTable& table) {
    table.get("/kvsystem/common/getSysApiReqUrls", "type# tAuthCode", getSysApiReqUrls)
        .open(Access::LineList)
        .withoutIds();
    table.get("/kvsystem/common/getSysMqttInfo", "", getSysMqttInfo).open(Access::Open).withoutIds();
});

} // namespace
} // namespace house
