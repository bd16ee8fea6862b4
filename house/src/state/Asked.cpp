#include "src/state/Asked.h"

#include <algorithm>

namespace house {
namespace {

Refusal refusal(const std::string& msg) { return {Reply::refuse("DATA_ERR_0001", msg)}; }

} // namespace

std::vector<std::string> textsOf(const nlohmann::json& body, const std::string& field)
{
    std::vector<std::string> texts;
    for (const nlohmann::json& value : body.value(field, nlohmann::json::array()))
        if (value.is_string())
            texts.push_back(value.get<std::string>());
    return texts;
}

Room& roomAsked(House& house, const Call& call, const std::string& field)
{
    if (Room* room = house.state.rooms.find(call.text(field)))
        return *room;
    throw refusal("房间不存在");
}

Room& roomByCodeAsked(House& house, const Call& call, const std::string& field)
{
    if (Room* room = house.state.roomByCode(call.text(field)))
        return *room;
    throw refusal("房间" + call.text(field) + "不存在");
}

Card& cardAsked(House& house, const std::string& id)
{
    if (Card* card = house.state.cards.find(id))
        return *card;
    throw refusal("手牌不存在");
}

Cards cardsAsked(House& house, const Call& call, const std::string& field)
{
    Cards cards;
    for (const std::string& id : textsOf(call.body, field)) {
        Card* card = &cardAsked(house, id);
        if (std::find(cards.begin(), cards.end(), card) == cards.end())
            cards.push_back(card);
    }
    return cards;
}

std::vector<Room*> roomsAsked(House& house, const Call& call, const std::string& field)
{
    std::vector<Room*> rooms;
    for (const std::string& id : textsOf(call.body, field)) {
        rooms.push_back(house.state.rooms.find(id));
        if (!rooms.back())
            throw refusal("房间不存在");
    }
    return rooms;
}

const Plan& planAsked(House& house, const Call& call, const std::string& field)
{
    if (const Plan* plan = house.state.plans.find(call.text(field)))
        return *plan;
    throw refusal("计费方案不存在");
}

bool holdsRight(const House& house, const Call& call, const std::string& rightId)
{
    const Staff* supervisor = house.seed.staffById(call.text("authOperater"));
    if (supervisor && house.sessions.hasVouched(supervisor->id, call.session->deviceId, call.now) &&
        supervisor->rights.count(rightId) > 0)
        return true;
    return call.staff->rights.count(rightId) > 0;
}

Act actOf(const Call& call) { return {call.staff->id, call.now}; }

Handler asked(Handler handler)
{
    return [handler = std::move(handler)](House& house, const Call& call) {
        try {
            return handler(house, call);
        } catch (const Refusal& refusal) {
            return refusal.reply;
        }
    };
}

Handler roomAction(std::function<Complaint(House&, const Call&)> action)
{
    return asked([action = std::move(action)](House& house, const Call& call) {
        const Complaint complaint = action(house, call);
        if (!complaint.empty())
            return Reply::refuse("ROOM_ERR_0002", complaint);
        announceRooms(house);
        return Reply::done();
    });
}

void announceRooms(House& house) { announce(house, "ROOMSTATUS", R"({"type":"room"})"); }

} // namespace house
