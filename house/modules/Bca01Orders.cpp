#include "src/state/Asked.h"
#include "src/state/RoomRecords.h"
#include "src/state/Sale.h"

namespace house {
namespace {

using nlohmann::json;

constexpr int onCard = 0;
constexpr int onRoom = 1;

bool takesConsumption(const Room& room) { return room.status == RoomStatus::Massage || isGuestRoom(room); }

std::string areaName(const House& house, const std::string& areaId)
{
    const WorkArea* area = house.seed.area(areaId);
    return area ? area->name : std::string();
}

json storedLine(const House& house, const Order& order)
{
    const Staff* person = house.seed.staffById(order.staffId);
    const Item* item = house.state.items.find(order.itemId);
    return {{"item_id", order.itemId},
            {"itemname", order.itemName},
            {"num", order.num},
            {"orderStatus", static_cast<int>(order.status)},
            {"price", order.price},
            {"server_type", static_cast<int>(order.kind)},
            {"id", order.id},
            {"areaName", areaName(house, order.areaId)},
            {"staffNo", codeOf(person)},
            {"staffId", order.staffId},
            {"staffName", nameOf(person)},
            {"is_pack_ticket", item ? item->isPackTicket : 0},
            {"pushNo", codeOf(house.seed.staffById(order.pushId))},
            {"areaId", order.areaId},
            {"createtime", timeText(order.createdAt)}};
}

json cardRecord(const Card& card)
{
    return {{"id", card.id},
            {"type", card.type},
            {"cardno", card.number},
            {"status", static_cast<int>(card.status)},
            {"room_id", card.roomId}};
}

json roomRecord(const House& house, const Room& room)
{
    json cards = json::array();
    for (const std::string& cardId : room.cardIds)
        cards.push_back({{"cardno", house.state.cardNumber(cardId)}});
    return {{"code", room.code},
            {"id", room.id},
            {"status", static_cast<int>(room.status)},
            {"openType", room.openType},
            {"cardList", cards}};
}

Reply getCardOrderInfo(House& house, const Call& call)
{
    const bool byRoom = !call.body.contains("cardno") && !call.body.contains("cardUid");
    const Room* room = byRoom ? house.state.roomByCode(call.text("roomNo")) : nullptr;
    const Card* card = byRoom ? nullptr : house.state.cardBy(call.text("cardno"), call.text("cardUid"));
    if (!room && !card)
        return Reply::refuse("ORDER_ERR_0002", byRoom ? "房间不存在" : "手牌不存在");
    const std::vector<Order*> orders =
        card ? house.state.ordersOfCard(card->id) : house.state.ordersOfRoom(room->id);
    json lines = json::array();
    for (const Order* order : orders)
        lines.push_back(storedLine(house, *order));
    json data = {{"amount", amountOf(orders)}, {"orderList", lines}};
    if (card)
        data["cardInfo"] = cardRecord(*card);
    else
        data["roomInfo"] = roomRecord(house, *room);
    return Reply::with(data);
}

Reply save(House& house, const Call& call, Account account)
{
    Sale sale(house, call, account);
    if (Reply reply = sale.read(call.body["items"]); !reply.isGood())
        return reply;
    sale.book();
    if (account.room)
        announceRooms(house);
    if (sale.concernsStaff())
        announce(house, "STAFFSTATUS", R"({"type":"staff"})");
    return Reply::with({{"orderArea", areaName(house, sale.areaId())},
                        {"orderDate", timeText(call.now)},
                        {"workNo", call.staff->code},
                        {"roomNo", account.room ? account.room->code : ""},
                        {"deskNo", sale.deskNo()},
                        {"mode", account.card ? onCard : onRoom}});
}

Reply batchUpdateOrder(House& house, const Call& call)
{
    const Card& card = cardAsked(house, call.text("hardCardId"));
    if (call.body["mode"] != onCard)
        return Reply::refuse("REQ_ERR_FIELD", "请求错误：手牌消费的mode须为0");
    if (card.status != CardStatus::InUse)
        return Reply::refuse("CARD_ERR_0004", "手牌" + card.number + "不处于在用状态");
    return save(house, call, {&card, house.state.rooms.find(card.roomId)});
}

Reply batchUpdateRoomOrder(House& house, const Call& call)
{
    const Room& room = roomAsked(house, call, "roomId");
    if (call.body["mode"] != onRoom)
        return Reply::refuse("REQ_ERR_FIELD", "请求错误：房间消费的mode须为1");
    if (!takesConsumption(room))
        return Reply::refuse("ROOM_ERR_0002", "房间" + room.code + "不处于可用状态");
    return save(house, call, {nullptr, &room});
}

/// The whole order that a line was saved with, as far as it still stands on the same card or room.
Reply getRePrintOrderList(House& house, const Call& call)
{
    const Order* asked = house.state.orders.find(call.text("orderId"));
    if (!asked)
        return Reply::refuse("ORDER_ERR_0003", "消费不存在");
    json list = json::array();
    for (const Order& order : house.state.orders)
        if (order.batchId == asked->batchId && order.status != LineStatus::Void &&
            order.cardId == asked->cardId)
            list.push_back({{"cardno", house.state.cardNumber(order.cardId)},
                            {"itemName", order.itemName},
                            {"areaName", areaName(house, order.areaId)},
                            {"num", order.num},
                            {"wrokNo", codeOf(house.seed.staffById(order.enteredBy))},
                            {"createtime", timeText(order.createdAt)},
                            {"total", amountOf(order)}});
    return Reply::with(list);
}

// The rights of a save stand in its lines, so the handler asks for them line by line.
const ModuleRegistration registration([](EndpointTable& table) {
    table.get("/bca01/getCardOrderInfo", getCardOrderInfo)
        .takes("cardUid", Kind::Text)
        .takes("cardno", Kind::Text)
        .takes("roomNo", Kind::Text);
    table.post("/bca01/batchUpdateOrder", asked(batchUpdateOrder))
        .needs("items", Kind::Array)
        .needs("opType", Kind::Number)
        .needs("mode", Kind::Number)
        .needs("hardCardId", Kind::Text)
        .takes("roomId", Kind::Text)
        .takes("remark", Kind::Text);
    table.post("/bca01/batchUpdateRoomOrder", asked(batchUpdateRoomOrder))
        .needs("items", Kind::Array)
        .needs("opType", Kind::Number)
        .needs("mode", Kind::Number)
        .needs("roomId", Kind::Text)
        .takes("remark", Kind::Text);
    table.get("/bca01/getRePrintOrderList", getRePrintOrderList).needs("orderId", Kind::Text);
});

} // namespace
} // namespace house
