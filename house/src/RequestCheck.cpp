#include "src/RequestCheck.h"

#include "src/House.h"
#include "src/Text.h"

#include <algorithm>
#include <cstdlib>

namespace house {
namespace {

using nlohmann::json;

/// Nothing while all is well.
using Refusal = std::optional<Reply>;

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

Refusal refuse(const char* what, const std::string& msg)
{
    return Reply::refuse(std::string("REQ_ERR_") + what, "请求错误：" + msg);
}

Refusal checkVerb(Check& check)
{
    const std::string verb = check.endpoint.verb == Verb::Get ? "GET" : "POST";
    if (check.request.method != verb)
        return refuse("METHOD", "该接口须用" + verb + "，收到" + check.request.method);
    if (verb == "GET" && check.request.hasBody)
        return refuse("BODY", "GET请求不得带请求体");
    if (verb == "POST" && check.request.contentType != formContentType)
        return refuse("CONTENT_TYPE", "Content-Type不正确：" + check.request.contentType);
    return {};
}

Refusal checkQuery(Check& check)
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
        if (i >= wanted.size() || got != wanted[i])
            return refuse("QUERY", "查询参数须依次为" + order + "，第" + std::to_string(i + 1) + "项为" + got);
        check.query[got] = items[i].value;
    }
    for (const std::string& name : check.endpoint.params)
        check.call.params[name] = check.query[name];
    return {};
}

Refusal checkTimeAndNonce(Check& check)
{
    const auto timestamp = decimal(check.query["timestamp"]);
    if (!timestamp)
        return refuse("TIMESTAMP", "timestamp须是十进制秒数：" + check.query["timestamp"]);
    if (std::llabs(*timestamp - check.call.now) > timestampToleranceSeconds)
        return refuse("TIMESTAMP",
                      "timestamp与服务器时间相差超过" + std::to_string(timestampToleranceSeconds) + "秒");
    if (!isLowerHex(check.query["nonce"], digestDigits))
        return refuse("NONCE", "nonce须是32位小写十六进制：" + check.query["nonce"]);
    return {};
}

Refusal checkJsonText(Check& check)
{
    const std::string& body = check.request.body;
    if (check.endpoint.verb == Verb::Post && body.compare(0, bodyStart.size(), bodyStart) != 0)
        return refuse("BODY", "请求体须以data=开头");
    std::string fault;
    const auto text = decodeStrict(encodedJson(check.request), fault);
    if (!text)
        return refuse("ENCODING", "data的转义不正确，" + fault);
    fault = jsonFormFault(*text);
    if (!fault.empty())
        return refuse("JSON", fault);
    check.jsonText = *text;
    check.call.body = json::parse(*text);
    return {};
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

std::vector<Field> commonFields(const Endpoint& endpoint)
{
    std::vector<Field> fields;
    for (const char* name : {"storeId", "compId", "deviceId", "soft_version", "tcode", "ts", "nc"})
        fields.push_back({name, Kind::Text, true});
    if (endpoint.access != Access::LineList) {
        fields.push_back({"creater", Kind::Text, true});
        if (endpoint.hasOperator)
            fields.push_back({"operator", Kind::Text, true});
        fields.push_back({"authOperater", Kind::Text, false});
        fields.push_back({"acode", Kind::Array, false});
    }
    return fields;
}

Refusal checkFields(Check& check)
{
    const json& body = check.call.body;
    std::vector<Field> fields = commonFields(check.endpoint);
    fields.insert(fields.end(), check.endpoint.fields.begin(), check.endpoint.fields.end());
    for (const Field& field : fields) {
        if (!body.contains(field.name)) {
            if (field.isRequired)
                return refuse("FIELD", "缺少字段" + field.name);
        } else if (!isOfKind(body[field.name], field.kind)) {
            return refuse("FIELD", "字段" + field.name + "的类型不正确");
        }
    }
    for (const auto& entry : body.items()) {
        const auto known = [&](const Field& field) { return field.name == entry.key(); };
        if (std::none_of(fields.begin(), fields.end(), known))
            return refuse("FIELD", "多余字段" + entry.key());
    }
    if (body["soft_version"] != softVersion)
        return refuse("FIELD", "soft_version不正确");
    if (body["tcode"] != terminalType)
        return refuse("FIELD", "tcode不正确");
    if (body["ts"] != check.query["timestamp"])
        return refuse("TIMESTAMP", "timestamp与JSON中的ts不一致");
    if (body["nc"] != check.query["nonce"])
        return refuse("NONCE", "nonce与JSON中的nc不一致");
    return {};
}

Refusal checkStore(Check& check)
{
    const std::string storeId = check.call.text("storeId");
    const std::string compId = check.call.text("compId");
    const std::string deviceId = check.call.text("deviceId");
    if (check.endpoint.mayLackIds && storeId.empty() && compId.empty() && deviceId.empty())
        return {};
    const Seed& seed = check.house.seed;
    check.call.terminal = seed.terminalById(deviceId);
    if (storeId != seed.storeId || compId != seed.compId || !check.call.terminal)
        return refuse("STORE", "storeId、compId或deviceId不属于本店");
    return {};
}

Refusal checkSignature(Check& check)
{
    const auto signature = check.query.find("signature");
    const bool isSigned = signature != check.query.end();
    if (isSigned && !isLowerHex(signature->second, digestDigits))
        return refuse("SIGNATURE", "signature须是32位小写十六进制");
    if (isSigned && check.endpoint.access == Access::LineList)
        return refuse("SIGNATURE", "该接口不签名");
    if (!check.call.session)
        return {};
    if (!isSigned)
        return refuse("SIGNATURE", "缺少signature");
    const Session& session = *check.call.session;
    std::string text =
        session.token + check.query["timestamp"] + check.query["nonce"] + check.jsonText + session.secret;
    std::replace(text.begin(), text.end(), '"', '\'');
    if (md5Hex(text) != signature->second)
        return refuse("SIGNATURE", "signature不正确");
    return {};
}

Refusal checkSession(Check& check)
{
    const std::optional<std::string>& token = check.request.authorization;
    if (check.endpoint.access == Access::Login && token)
        return refuse("AUTHORIZATION", "登录接口不得带Authorization");
    if (token && check.endpoint.access != Access::LineList) {
        if (const Session* session = check.house.sessions.find(*token, check.call.now))
            check.call.session = *session;
    }
    if (check.endpoint.access == Access::Session && !check.call.session)
        return refuse("SESSION", token ? "登录已失效，请重新登录" : "未登录，缺少Authorization");
    if (Refusal refusal = checkSignature(check))
        return refusal;
    if (!check.call.session)
        return {};

    const Session& session = *check.call.session;
    check.call.staff = check.house.seed.staffById(session.staffId);
    if (check.call.terminal && session.deviceId != check.call.terminal->id)
        return refuse("SESSION", "登录不属于本终端");
    const bool isOther = check.endpoint.hasOperator && check.call.text("operator") != session.staffId;
    if (isOther || check.call.text("creater") != session.staffId)
        return refuse("OPERATOR", "operator或creater不是当前登录人");
    return {};
}

Refusal checkNonceUnused(Check& check)
{
    const bool isGet = check.endpoint.verb == Verb::Get;
    if (!check.house.nonces.admit(check.query["nonce"], isGet, check.request.target, check.call.now))
        return refuse("NONCE", "nonce重复使用：" + check.query["nonce"]);
    return {};
}

bool holdsAll(const Staff& person, const std::vector<std::string>& rights)
{
    return std::all_of(rights.begin(), rights.end(),
                       [&](const std::string& id) { return person.rights.count(id) > 0; });
}

Refusal checkRights(Check& check)
{
    const std::vector<std::string> demanded = demandedRights(check.endpoint.rights, check.call.body);
    const json named = check.call.body.value("acode", json::array());
    if (named != json(demanded) || (demanded.empty() && check.call.body.contains("acode")))
        return refuse("ACODE", "acode应为" + json(demanded).dump() + "，收到" + named.dump());
    if (demanded.empty() || (check.call.staff && holdsAll(*check.call.staff, demanded)))
        return {};

    const std::string supervisorId = check.call.text("authOperater");
    const Staff* supervisor = check.house.seed.staffById(supervisorId);
    const std::string deviceId = check.call.session ? check.call.session->deviceId : std::string();
    if (!supervisorId.empty() &&
        (!supervisor || !check.house.sessions.hasVouched(supervisorId, deviceId, check.call.now)))
        return refuse("SUPERVISOR", "授权人未在本终端验证身份");
    if (supervisor && holdsAll(*supervisor, demanded))
        return {};
    return Reply::refuse("AUTH_ERR_0002", supervisor ? supervisor->name + "无此操作权限，请其他主管授权"
                                                     : "您没有此操作的权限，请主管授权");
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

std::variant<Call, Reply> checkRequest(House& house, const Endpoint& endpoint, const WireRequest& request)
{
    Check check{house, endpoint, request, {}, {}, {}};
    check.call.now = house.clock();
    constexpr Refusal (*steps[])(Check&) = {checkVerb,     checkQuery,       checkTimeAndNonce,
                                            checkJsonText, checkFields,      checkStore,
                                            checkSession,  checkNonceUnused, checkRights};
    for (const auto step : steps)
        if (const Refusal refusal = step(check))
            return *refusal;
    house.holds.note(house.state, house.seed, check.call.body, check.call.now);
    return std::move(check.call);
}

} // namespace house
