#include "src/Asked.h"

#include "src/Text.h"

#include <algorithm>

namespace house {
namespace {

template <typename Row>
Row& found(Row* row, const char* code, const std::string& msg)
{
    if (!row)
        refuse(code, msg);
    return *row;
}

} // namespace

std::vector<std::string> textsOf(const nlohmann::json& body, const std::string& field)
{
    std::vector<std::string> texts;
    for (const nlohmann::json& value : body.value(field, nlohmann::json::array()))
        if (value.is_string())
            texts.push_back(value.get<std::string>());
    return texts;
}

std::size_t positive(const Call& call, const char* param)
{
    const auto number = decimal(call.params.at(param));
    demand(number && *number > 0, "REQ_ERR_QUERY", std::string("请求错误：") + param + "须是正整数");
    return static_cast<std::size_t>(*number);
}

Room& roomOfId(House& house, const std::string& id)
{
    return found(house.state.rooms.find(id), "ROOM_ERR_0001", "房间不存在");
}

Room& roomOfCode(House& house, const std::string& code)
{
    return found(house.state.roomByCode(code), "ROOM_ERR_0001", "房间" + code + "不存在");
}

std::vector<Room*> roomsOfIds(House& house, const std::vector<std::string>& ids)
{
    std::vector<Room*> rooms;
    for (const std::string& id : ids)
        rooms.push_back(&roomOfId(house, id));
    return rooms;
}

Card& cardOfId(House& house, const std::string& id)
{
    return found(house.state.cards.find(id), "CARD_ERR_0001", "手牌不存在");
}

Cards cardsOfIds(House& house, const std::vector<std::string>& ids)
{
    Cards cards;
    for (const std::string& id : ids) {
        Card* card = &cardOfId(house, id);
        if (std::find(cards.begin(), cards.end(), card) == cards.end())
            cards.push_back(card);
    }
    return cards;
}

Card& cardOf(House& house, const std::string& number, const std::string& uid)
{
    Card* card = uid.empty() ? house.state.cardByNumber(number) : house.state.cardByUid(uid);
    return found(card, "CARD_ERR_0001", "手牌" + number + "不存在");
}

Card& guestCard(House& house, const std::string& number, const std::string& uid)
{
    Card& card = cardOf(house, number, uid);
    demand(card.status == CardStatus::InUse, "CARD_ERR_0002", "手牌【" + card.number + "】不处于在用状态");
    return card;
}

const Plan& planOfId(const House& house, const std::string& id)
{
    return found(house.state.plans.find(id), "ROOM_ERR_0001", "计费方案不存在");
}

const Item& itemOfId(const House& house, const std::string& id)
{
    return found(house.state.items.find(id), "ITEM_ERR_0001", "项目不存在或已停售");
}

const Staff& staffOfId(const House& house, const std::string& id)
{
    return found(house.seed.staffById(id), "STAFF_ERR_0001", "员工不存在");
}

const Staff& staffOfCode(const House& house, const std::string& code)
{
    return found(house.seed.staffByCode(code), "STAFF_ERR_0001", "工号【" + code + "】不存在");
}

const Staff& identified(const House& house, const std::string& cardUid, const std::string& code,
                        const std::string& password)
{
    const Staff* person = house.seed.staffByCode(code);
    const Staff& claimed = cardUid.empty()
                               ? found(person && person->password == password ? person : nullptr,
                                       "LOGIN_ERR_0001", "工号或密码错误")
                               : found(house.seed.staffByCard(cardUid), "LOGIN_ERR_0002", "员工卡未登记");
    demand(claimed.active, "LOGIN_ERR_0003", "该员工已停用");
    return claimed;
}

const Staff& actingStaff(const House& house, const Call& call)
{
    const std::string uid = call.text("staffUid");
    const std::string code = call.text("staffNo");
    return uid.empty() && code.empty() ? *call.staff : identified(house, uid, code, call.text("staffPwd"));
}

void demandRight(const House& house, const Call& call, const std::string& rightId)
{
    const Staff* supervisor = house.seed.staffById(call.text("authOperater"));
    const bool isGranted = supervisor &&
                           house.sessions.hasVouched(supervisor->id, call.session->deviceId, call.now) &&
                           supervisor->rights.count(rightId) > 0;
    const bool isFree = call.staff->rights.count(rightId) > 0 && call.staff->supervised.count(rightId) == 0;
    demand(isGranted || isFree, "AUTH_ERR_0002", "您没有此操作的权限，请主管授权");
}

void announceRooms(House& house) { announce(house, "ROOMSTATUS", R"({"type":"room"})"); }

Reply roomsChanged(House& house)
{
    announceRooms(house);
    return Reply::done();
}

} // namespace house
