#include "src/RequestCheck.h"

#include "src/House.h"
#include "src/Refusal.h"
#include "src/Text.h"

#include <algorithm>
#include <cstdlib>

namespace house {
namespace {

using nlohmann::json;

constexpr char formContentType[] = "application/x-www-form-urlencoded;charset=UTF-8";
constexpr char softVersion[] = "kv_panel_v3";
constexpr char terminalType[] = "5";
constexpr std::size_t digestDigits = 32;
const std::string bodyStart = "data=";

/// What the steps hand on to each other.
struct Check
{
    House& house;
    const Endpoint& endpoint;
    const WireRequest& request;
    Call call;
    std::map<std::string, std::string> query; ///< as it travelled
    std::string jsonText;
};

void demand(bool isTrue, const char* what, const std::string& msg)
{
    if (!isTrue)
        refuse(std::string("REQ_ERR_") + what, "请求错误：" + msg);
}

void checkVerb(Check& check)
{
    const WireRequest& request = check.request;
    const bool isGet = check.endpoint.verb == Verb::Get;
    const std::string verb = isGet ? "GET" : "POST";
    demand(request.method == verb, "METHOD", "该接口须用" + verb + "，收到" + request.method);
    demand(!isGet || !request.hasBody, "BODY", "GET请求不得带请求体");
    demand(isGet || request.contentType == formContentType, "CONTENT_TYPE",
           "Content-Type不正确：" + request.contentType);
}

void checkQuery(Check& check)
{
    const std::vector<QueryItem> items = splitQuery(queryOf(check.request.target));
    std::vector<std::string> wanted = {"timestamp", "nonce"};
    if (check.endpoint.verb == Verb::Get)
        wanted.push_back("data");
    wanted.insert(wanted.end(), check.endpoint.params.begin(), check.endpoint.params.end());
    if (!items.empty() && items.back().key == "signature")
        wanted.push_back("signature");

    std::string order;
    for (const std::string& key : wanted)
        order += (order.empty() ? "" : ",") + key;
    for (std::size_t i = 0; i < std::max(items.size(), wanted.size()); ++i) {
        const std::string got = i < items.size() ? items[i].key : "缺失";
        demand(i < wanted.size() && got == wanted[i], "QUERY",
               "查询参数须依次为" + order + "，第" + std::to_string(i + 1) + "项为" + got);
        check.query[got] = items[i].value;
    }
    for (const std::string& name : check.endpoint.params)
        check.call.params[name] = check.query[name];
}

void checkTimeAndNonce(Check& check)
{
    const auto timestamp = decimal(check.query["timestamp"]);
    demand(timestamp.has_value(), "TIMESTAMP", "timestamp须是十进制秒数：" + check.query["timestamp"]);
    demand(std::llabs(*timestamp - check.call.now) <= timestampToleranceSeconds, "TIMESTAMP",
           "timestamp与服务器时间相差超过" + std::to_string(timestampToleranceSeconds) + "秒");
    demand(isLowerHex(check.query["nonce"], digestDigits), "NONCE",
           "nonce须是32位小写十六进制：" + check.query["nonce"]);
}

void checkJsonText(Check& check)
{
    demand(check.endpoint.verb == Verb::Get || check.request.body.compare(0, bodyStart.size(), bodyStart) == 0,
           "BODY", "请求体须以data=开头");
    std::string fault;
    const auto text = decodeStrict(encodedJson(check.request), fault);
    demand(text.has_value(), "ENCODING", "data的转义不正确，" + fault);
    const auto body = parseSorted(*text, fault);
    demand(body.has_value(), "JSON", fault);
    check.jsonText = *text;
    check.call.body = *body;
}

bool isOfKind(const json& value, Kind kind)
{
    switch (kind) {
    case Kind::Text:
        return value.is_string();
    case Kind::Number:
        return value.is_number();
    case Kind::Array:
        return value.is_array();
    case Kind::Any:
        break;
    }
    return true;
}

std::vector<Field> fieldsToCheck(const Endpoint& endpoint)
{
    std::string common = "storeId compId deviceId soft_version tcode ts nc";
    if (endpoint.access != Access::LineList)
        common += " creater authOperater? acode[]?";
    if (endpoint.access != Access::LineList && endpoint.hasOperator)
        common += " operator";
    std::vector<Field> fields = fieldsOf(common);
    fields.insert(fields.end(), endpoint.fields.begin(), endpoint.fields.end());
    return fields;
}

void checkFields(Check& check)
{
    const json& body = check.call.body;
    const std::vector<Field> fields = fieldsToCheck(check.endpoint);
    for (const Field& field : fields) {
        demand(!field.isRequired || body.contains(field.name), "FIELD", "缺少字段" + field.name);
        demand(!body.contains(field.name) || isOfKind(body[field.name], field.kind), "FIELD",
               "字段" + field.name + "的类型不正确");
    }
    for (const auto& entry : body.items()) {
        const auto isIt = [&](const Field& field) { return field.name == entry.key(); };
        demand(std::any_of(fields.begin(), fields.end(), isIt), "FIELD", "多余字段" + entry.key());
    }
    demand(body["soft_version"] == softVersion, "FIELD", "soft_version不正确");
    demand(body["tcode"] == terminalType, "FIELD", "tcode不正确");
    demand(body["ts"] == check.query["timestamp"], "TIMESTAMP", "timestamp与JSON中的ts不一致");
    demand(body["nc"] == check.query["nonce"], "NONCE", "nonce与JSON中的nc不一致");
}

void checkStore(Check& check)
{
    const std::string storeId = check.call.text("storeId");
    const std::string compId = check.call.text("compId");
    const std::string deviceId = check.call.text("deviceId");
    if (check.endpoint.mayLackIds && storeId.empty() && compId.empty() && deviceId.empty())
        return;
    const Seed& seed = check.house.seed;
    check.call.terminal = seed.terminalById(deviceId);
    demand(storeId == seed.storeId && compId == seed.compId && check.call.terminal, "STORE",
           "storeId、compId或deviceId不属于本店");
}

void checkSignature(Check& check)
{
    const auto signature = check.query.find("signature");
    const bool isSigned = signature != check.query.end();
    demand(!isSigned || isLowerHex(signature->second, digestDigits), "SIGNATURE",
           "signature须是32位小写十六进制");
    demand(!isSigned || check.endpoint.access != Access::LineList, "SIGNATURE", "该接口不签名");
    if (!check.call.session)
        return;
    demand(isSigned, "SIGNATURE", "缺少signature");
    const Session& session = *check.call.session;
    std::string text =
        session.token + check.query["timestamp"] + check.query["nonce"] + check.jsonText + session.secret;
    std::replace(text.begin(), text.end(), '"', '\'');
    demand(md5Hex(text) == signature->second, "SIGNATURE", "signature不正确");
}

void checkSession(Check& check)
{
    const std::optional<std::string>& token = check.request.authorization;
    demand(check.endpoint.access != Access::Login || !token, "AUTHORIZATION", "登录接口不得带Authorization");
    if (token && check.endpoint.access != Access::LineList) {
        if (const Session* session = check.house.sessions.find(*token, check.call.now))
            check.call.session = *session;
    }
    demand(check.endpoint.access != Access::Session || check.call.session, "SESSION",
           token ? "登录已失效，请重新登录" : "未登录，缺少Authorization");
    checkSignature(check);
    if (!check.call.session)
        return;

    const Session& session = *check.call.session;
    check.call.staff = check.house.seed.staffById(session.staffId);
    demand(!check.call.terminal || session.deviceId == check.call.terminal->id, "SESSION", "登录不属于本终端");
    const bool isOperator = !check.endpoint.hasOperator || check.call.text("operator") == session.staffId;
    demand(isOperator && check.call.text("creater") == session.staffId, "OPERATOR",
           "operator或creater不是当前登录人");
}

void checkNonceUnused(Check& check)
{
    const bool isGet = check.endpoint.verb == Verb::Get;
    demand(check.house.nonces.admit(check.query["nonce"], isGet, check.request.target, check.call.now), "NONCE",
           "nonce重复使用：" + check.query["nonce"]);
}

bool holdsAll(const Staff& person, const std::vector<std::string>& rights)
{
    return std::all_of(rights.begin(), rights.end(),
                       [&](const std::string& id) { return person.rights.count(id) > 0; });
}

void checkRights(Check& check)
{
    const std::vector<std::string> demanded = demandedRights(check.endpoint.rights, check.call.body);
    const json named = check.call.body.value("acode", json::array());
    demand(named == json(demanded) && (!demanded.empty() || !check.call.body.contains("acode")), "ACODE",
           "acode应为" + json(demanded).dump() + "，收到" + named.dump());
    if (demanded.empty() || (check.call.staff && holdsAll(*check.call.staff, demanded)))
        return;

    const std::string supervisorId = check.call.text("authOperater");
    const Staff* supervisor = check.house.seed.staffById(supervisorId);
    const std::string deviceId = check.call.session ? check.call.session->deviceId : std::string();
    const bool hasVouched =
        supervisor && check.house.sessions.hasVouched(supervisorId, deviceId, check.call.now);
    demand(supervisorId.empty() || hasVouched, "SUPERVISOR", "授权人未在本终端验证身份");
    if (!supervisor)
        refuse("AUTH_ERR_0002", "您没有此操作的权限，请主管授权");
    if (!holdsAll(*supervisor, demanded))
        refuse("AUTH_ERR_0002", supervisor->name + "无此操作权限，请其他主管授权");
}

} // namespace

std::string encodedJson(const WireRequest& request)
{
    if (request.body.compare(0, bodyStart.size(), bodyStart) == 0)
        return request.body.substr(bodyStart.size());
    for (const QueryItem& item : splitQuery(queryOf(request.target)))
        if (item.key == "data")
            return item.value;
    return {};
}

Call checkRequest(House& house, const Endpoint& endpoint, const WireRequest& request)
{
    Check check{house, endpoint, request, {}, {}, {}};
    check.call.now = house.clock();
    for (const auto step : {checkVerb, checkQuery, checkTimeAndNonce, checkJsonText, checkFields, checkStore,
                            checkSession, checkNonceUnused, checkRights})
        step(check);
    for (const Field& field : endpoint.fields)
        if (check.call.body.contains(field.name))
            house.holds.note(house.state, house.seed, check.call.body[field.name], check.call.now);
    return std::move(check.call);
}

} // namespace house
