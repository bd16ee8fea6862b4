#include "src/Asked.h"
#include "src/Unread.h"
#include "src/state/RoomDesk.h"
#include "src/state/RoomRecords.h"
#include "src/state/Sale.h"

namespace house {
namespace {

using nlohmann::json;

constexpr int onCard = 0;
constexpr int onRoom = 1;

std::string areaName(const House& house, const std::string& areaId)
{
    const WorkArea* area = house.seed.area(areaId);
    return area ? area->name : std::string();
}

json storedLine(const House& house, const Order& order)
{
    const Item* item = house.state.items.find(order.itemId);
    return withUnread({{"item_id", order.itemId},
                       {"itemname", order.itemName},
                       {"num", order.num},
                       {"orderStatus", static_cast<int>(order.status)},
                       {"price", order.price},
                       {"server_type", static_cast<int>(order.kind)},
                       {"id", order.id},
                       {"areaName", areaName(house, order.areaId)},
                       {"staffNo", codeOf(house.seed.staffById(order.staffId))},
                       {"is_pack_ticket", item ? item->isPackTicket : 0},
                       {"areaId", order.areaId},
                       {"createtime", timeText(order.createdAt)}},
                      {"staffId", "staffName", "pushNo"});
}

Reply getCardOrderInfo(House& house, const Call& call)
{
    std::vector<Order*> orders;
    json data;
    if (call.body.contains("cardno") || call.body.contains("cardUid")) {
        const Card& card = cardOf(house, call.text("cardno"), call.text("cardUid"));
        orders = house.state.ordersOfCard(card.id);
        data["cardInfo"] = {{"id", card.id},
                            {"type", card.type},
                            {"cardno", card.number},
                            {"status", static_cast<int>(card.status)},
                            {"room_id", card.roomId}};
    } else {
        const Room& room = roomOfCode(house, call.text("roomNo"));
        orders = house.state.ordersOfRoom(room.id);
        data["roomInfo"] = {{"code", room.code},
                            {"id", room.id},
                            {"status", static_cast<int>(room.status)},
                            {"openType", room.openType},
                            {"cardList", json::array()}};
    }
    data["amount"] = amountOf(orders);
    data["orderList"] = json::array();
    for (const Order* order : orders)
        data["orderList"].push_back(storedLine(house, *order));
    return Reply::with(data);
}

/// The rights of a save stand in its lines, so they are asked for line by line.
Reply save(House& house, const Call& call, Account account)
{
    Sale sale(house, call, account);
    sale.read(call.body["items"]);
    sale.book();
    if (account.room)
        announceRooms(house);
    if (sale.concernsStaff())
        announce(house, "STAFFSTATUS", R"({"type":"staff"})");
    return Reply::with(withUnread({{"orderArea", areaName(house, sale.areaId())},
                                   {"orderDate", timeText(call.now)},
                                   {"roomNo", account.room ? account.room->code : ""},
                                   {"deskNo", sale.deskNo()}},
                                  {"workNo"}, {"mode"}));
}

Reply batchUpdateOrder(House& house, const Call& call)
{
    const Card& card = cardOfId(house, call.text("hardCardId"));
    demand(call.body["mode"] == onCard, "REQ_ERR_FIELD", "请求错误：手牌消费的mode须为0");
    demand(card.status == CardStatus::InUse, "CARD_ERR_0002", "手牌" + card.number + "不处于在用状态");
    return save(house, call, {&card, house.state.rooms.find(card.roomId)});
}

Reply batchUpdateRoomOrder(House& house, const Call& call)
{
    const Room& room = roomOfId(house, call.text("roomId"));
    demand(call.body["mode"] == onRoom, "REQ_ERR_FIELD", "请求错误：房间消费的mode须为1");
    demand(room.status == RoomStatus::Massage || isGuestRoom(room), roomFault,
           "房间" + room.code + "不处于可用状态");
    return save(house, call, {nullptr, &room});
}

/// The whole order that a line was saved with, as far as it still stands on the same card or room.
Reply getRePrintOrderList(House& house, const Call& call)
{
    const Order* asked = house.state.orders.find(call.text("orderId"));
    demand(asked, "ORDER_ERR_0003", "消费不存在");
    json list = json::array();
    for (const Order& order : house.state.orders)
        if (order.batchId == asked->batchId && order.status != LineStatus::Void &&
            order.cardId == asked->cardId)
            list.push_back(withUnread({{"cardno", house.state.cardNumber(order.cardId)},
                                       {"itemName", order.itemName},
                                       {"areaName", areaName(house, order.areaId)},
                                       {"num", order.num},
                                       {"createtime", timeText(order.createdAt)},
                                       {"total", amountOf(order)}},
                                      {"wrokNo"}));
    return Reply::with(list);
}

const ModuleRegistration registration([](EndpointTable& table) {
    table.get("/bca01/getCardOrderInfo", "cardUid? cardno? roomNo?", getCardOrderInfo);
    table.post("/bca01/batchUpdateOrder", "items[] opType# mode# hardCardId roomId? remark?", batchUpdateOrder);
    table.post("/bca01/batchUpdateRoomOrder", "items[] opType# mode# roomId remark?", batchUpdateRoomOrder);
    table.get("/bca01/getRePrintOrderList", "orderId", getRePrintOrderList);
});

} // namespace
} // namespace house
