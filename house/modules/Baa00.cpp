#include "src/Asked.h"

namespace house {
namespace {

using nlohmann::json;

constexpr int supervisorLogin = 1;

/// The terminal that the key in the query belongs to; one whose ids are sent must send its own key.
const Terminal& terminalOfKey(const House& house, const Call& call)
{
    const Terminal* terminal = house.seed.terminalBySecretKey(call.params.at("secretKey"));
    demand(terminal && (!call.terminal || call.terminal == terminal), "TERMINAL_ERR_0001",
           "终端密钥不正确，请联系管理员");
    return *terminal;
}

Reply getSysInitByAuthCode(House& house, const Call& call)
{
    json data = {{"terminalInfo", terminalOfKey(house, call).record}};
    for (const char* record : {"modAuth", "sysconfig", "planconfig", "cardconfig", "mqttInfo", "kvupload"})
        data[record] = house.seed.document[record];
    data["sysconfig"]["storeId"] = house.seed.storeId;
    data["sysconfig"]["compId"] = house.seed.compId;
    return Reply::with(data);
}

json userInfo(const Staff& person)
{
    return {{"staffId", person.id},
            {"name", person.name},
            {"code", person.code},
            {"workerTypes", person.workerTypes}};
}

json workAreas(const House& house, const Staff& person)
{
    json list = json::array();
    for (const std::string& areaId : person.areaIds)
        list.push_back({{"id", person.id + "-" + areaId},
                        {"areaId", areaId},
                        {"areaName", house.seed.area(areaId)->name}});
    return list;
}

Reply loginMod(House& house, const Call& call)
{
    const Terminal& terminal = terminalOfKey(house, call);
    const bool byCard = call.body.contains("cardUid");
    demand(byCard != call.body.contains("workNo") && byCard != call.body.contains("pwd"), "REQ_ERR_FIELD",
           "请求错误：须有cardUid，或者workNo与pwd");
    const Staff& person = identified(house, call.text("cardUid"), call.text("workNo"), call.text("pwd"));
    json data = {{"userInfo", userInfo(person)}, {"workarealist", workAreas(house, person)}};
    if (call.body.value("type", 0) == supervisorLogin) {
        house.sessions.vouch(person.id, terminal.id, call.now);
        return Reply::with(data);
    }
    const long long lifetimeSeconds = house.seed.tokenLifetimeSeconds;
    const Session& session = house.sessions.open(person.id, terminal.id, call.now + lifetimeSeconds);
    data["token"] = session.token;
    data["secret"] = session.secret;
    data["timestamp"] = lifetimeSeconds;
    return Reply::with(data);
}

Reply keepLogin(House& house, const Call& call)
{
    house.sessions.extend(call.session->token, call.now + house.seed.tokenLifetimeSeconds);
    return Reply::done();
}

Reply getAuthInfoByCodes(House&, const Call& call)
{
    json data = json::object();
    for (const json& id : call.body["authCodes"]) {
        demand(id.is_string(), "REQ_ERR_FIELD", "请求错误：authCodes须全为字符串");
        const bool holds = call.staff->rights.count(id.get<std::string>()) > 0;
        data[id.get<std::string>()] = {{"isHave", holds}, {"isGranted", holds}};
    }
    return Reply::with(data);
}

// What a terminal calls to get going works before it knows its store; the business endpoints want its ids.
const ModuleRegistration registration([](EndpointTable& table) {
    table.get("/baa00/getSysInitByAuthCode", "", getSysInitByAuthCode)
        .open(Access::Open)
        .withoutIds()
        .query({"secretKey"});
    table.post("/baa00/loginMod", "modCode workNo? pwd? cardUid? type#?", loginMod)
        .open(Access::Login)
        .withoutIds()
        .query({"secretKey"});
    table.post("/baa00/keepLogin", "", keepLogin).withoutIds();
    table.post("/baa00/getAuthInfoByCodes", "authCodes[]", getAuthInfoByCodes).withoutIds();
});

} // namespace
} // namespace house
