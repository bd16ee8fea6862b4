#include "src/House.h"

namespace house {
namespace {

using nlohmann::json;

constexpr int supervisorLogin = 1;

/// The terminal that the key in the query belongs to; null when the key is nobody's or another terminal's.
const Terminal* terminalOfKey(const House& house, const Call& call)
{
    const Terminal* terminal = house.seed.terminalBySecretKey(call.params.at("secretKey"));
    return call.terminal && call.terminal != terminal ? nullptr : terminal;
}

Reply unknownTerminal() { return Reply::refuse("TERMINAL_ERR_0001", "终端密钥不正确，请联系管理员"); }

Reply getSysInitByAuthCode(House& house, const Call& call)
{
    const Terminal* terminal = terminalOfKey(house, call);
    if (!terminal)
        return unknownTerminal();
    json data = {{"terminalInfo", terminal->record}};
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
    const Terminal* terminal = terminalOfKey(house, call);
    if (!terminal)
        return unknownTerminal();
    const bool byCard = call.body.contains("cardUid");
    if (byCard == call.body.contains("workNo") || byCard == call.body.contains("pwd"))
        return Reply::refuse("REQ_ERR_FIELD", "请求错误：须有cardUid，或者workNo与pwd");

    const Staff* person =
        byCard ? house.seed.staffByCard(call.text("cardUid")) : house.seed.staffByCode(call.text("workNo"));
    if (!person && byCard)
        return Reply::refuse("LOGIN_ERR_0002", "员工卡未登记");
    if (!person || (!byCard && person->password != call.text("pwd")))
        return Reply::refuse("LOGIN_ERR_0001", "工号或密码错误");
    if (!person->active)
        return Reply::refuse("LOGIN_ERR_0003", "该员工已停用");

    json data = {{"userInfo", userInfo(*person)}, {"workarealist", workAreas(house, *person)}};
    if (call.body.value("type", 0) == supervisorLogin) {
        house.sessions.vouch(person->id, terminal->id, call.now);
        return Reply::with(data);
    }
    const long long lifetimeSeconds = house.seed.tokenLifetimeSeconds;
    const Session& session = house.sessions.open(person->id, terminal->id, call.now + lifetimeSeconds);
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
        if (!id.is_string())
            return Reply::refuse("REQ_ERR_FIELD", "请求错误：authCodes须全为字符串");
        const bool holds = call.staff->rights.count(id.get<std::string>()) > 0;
        data[id.get<std::string>()] = {{"isHave", holds}, {"isGranted", holds}};
    }
    return Reply::with(data);
}

// What a terminal calls to get going works before it knows its store; the business endpoints want its ids.
const ModuleRegistration registration([](EndpointTable& table) {
    table.get("/baa00/getSysInitByAuthCode", getSysInitByAuthCode)
        .open(Access::Open)
        .withoutIds()
        .query({"secretKey"});
    table.post("/baa00/loginMod", loginMod)
        .open(Access::Login)
        .withoutIds()
        .query({"secretKey"})
        .needs("modCode", Kind::Text)
        .takes("workNo", Kind::Text)
        .takes("pwd", Kind::Text)
        .takes("cardUid", Kind::Text)
        .takes("type", Kind::Number);
    table.post("/baa00/keepLogin", keepLogin).withoutIds();
    table.post("/baa00/getAuthInfoByCodes", getAuthInfoByCodes).withoutIds().needs("authCodes", Kind::Array);
});

} // namespace
} // namespace house
