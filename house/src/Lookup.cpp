#include "src/Lookup.h"

namespace house {

void refuse(const char* code, const std::string& msg) { throw Refusal{Reply::refuse(code, msg)}; }

void refuseIf(const char* code, const std::string& complaint)
{
    if (!complaint.empty())
        refuse(code, complaint);
}

Card& guestCard(House& house, const std::string& number, const std::string& uid)
{
    Card* card = house.state.cardBy(number, uid);
    if (!card)
        refuse("CARD_ERR_0001", "未找到手牌信息");
    if (card->status != CardStatus::InUse)
        refuse("CARD_ERR_0002", "手牌【" + card->number + "】不处于在用状态");
    return *card;
}

const Staff& staffOfId(const House& house, const std::string& staffId)
{
    const Staff* person = house.seed.staffById(staffId);
    if (!person)
        refuse("STAFF_ERR_0001", "员工不存在");
    return *person;
}

const Staff& staffOfCode(const House& house, const std::string& code)
{
    const Staff* person = house.seed.staffByCode(code);
    if (!person)
        refuse("STAFF_ERR_0001", "工号【" + code + "】不存在");
    return *person;
}

const Item& itemOfId(const House& house, const std::string& itemId)
{
    const Item* item = house.state.items.find(itemId);
    if (!item)
        refuse("ITEM_ERR_0001", "项目不存在或已停售");
    return *item;
}

Room& roomInUse(House& house, const std::string& code)
{
    Room* room = house.state.roomByCode(code);
    if (!room)
        refuse("ROOM_ERR_0001", "房间【" + code + "】不存在");
    if (!isInUse(*room))
        refuse("ROOM_ERR_0001", "房间【" + code + "】未开房");
    return *room;
}

Endpoint& withActingStaff(Endpoint& endpoint)
{
    return endpoint.takes("staffUid", Kind::Text).takes("staffNo", Kind::Text).takes("staffPwd", Kind::Text);
}

const Staff& actingStaff(const House& house, const Call& call)
{
    const std::string uid = call.text("staffUid");
    const std::string code = call.text("staffNo");
    if (uid.empty() && code.empty())
        return *call.staff;
    const Staff* person = uid.empty() ? house.seed.staffByCode(code) : house.seed.staffByCard(uid);
    if (!person && !uid.empty())
        refuse("LOGIN_ERR_0002", "员工卡未登记");
    if (!person || (uid.empty() && person->password != call.text("staffPwd")))
        refuse("LOGIN_ERR_0001", "工号或密码错误");
    if (!person->active)
        refuse("LOGIN_ERR_0003", "该员工已停用");
    return *person;
}

} // namespace house
