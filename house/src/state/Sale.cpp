#include "src/state/Sale.h"

#include "src/Asked.h"
#include "src/state/RoomDesk.h"

#include <algorithm>

namespace house {
namespace {

using nlohmann::json;

constexpr char saleFault[] = "ORDER_ERR_0001";
constexpr int chargebackStatus = 3;
constexpr int highestClockKind = 6;

/// The right that a line of this status needs.
struct LineRight
{
    int status;
    const char* onCard;
    const char* onRoom;
};

constexpr LineRight lineRights[] = {
    {static_cast<int>(LineStatus::Normal), "405761091685322753", "418097899945332740"},
    {static_cast<int>(LineStatus::Gift), "405761200963719170", "419172939348578306"},
    {chargebackStatus, "405761142306377733", "418098003150376961"},
};

std::string textOf(const json& row, const char* field) { return row.value(field, std::string()); }

} // namespace

Sale::Sale(House& house, const Call& call, Account account) : house(house), call(call), account(account) {}

void Sale::read(const json& items)
{
    demand(!items.empty(), saleFault, "请先添加消费项目");
    for (const json& row : items)
        readLine(row);
}

void Sale::readLine(const json& row)
{
    const int status = row.at("status").get<int>();
    const auto right = std::find_if(std::begin(lineRights), std::end(lineRights),
                                    [&](const LineRight& entry) { return entry.status == status; });
    demand(right != std::end(lineRights), saleFault, "消费状态不正确");
    demandRight(house, call, account.card ? right->onCard : right->onRoom);
    if (status == chargebackStatus)
        readChargeback(row);
    else
        readNew(row, static_cast<LineStatus>(status));
}

void Sale::readNew(const json& row, LineStatus status)
{
    const Item* item = house.state.items.find(row.at("id").get<std::string>());
    demand(item && static_cast<int>(item->kind) == row.at("orderType").get<int>(), saleFault,
           "项目不存在或已变更，请刷新后再试");
    Order order = lineOf(*item);
    order.status = status;
    order.num = row.at("num").get<double>();
    if (item->sellFlg == marketPriceSale && status == LineStatus::Normal)
        order.price = roundMoney(row.at("price").get<double>());
    demand(order.num > 0 && order.price >= 0, saleFault, item->name + "的数量或价格不正确");
    order.areaId = textOf(row, "areaId");
    demand(order.areaId.empty() || house.seed.area(order.areaId), saleFault, "营业区域不存在");
    readPeople(row, order);
    // A position typed at the end of a service may be a room.
    const Room* position = house.state.roomByCode(textOf(row, "roomNo"));
    order.roomId = account.room ? account.room->id : position && isInUse(*position) ? position->id : "";
    order.cardId = account.card ? account.card->id : "";
    order.minutes = static_cast<int>(item->minutes * order.num);
    order.enteredBy = call.staff->id;
    order.deviceId = call.terminal->id;
    order.createdAt = call.now;
    order.remark = textOf(row, "remark");
    order.tasteIds = row.value("tagIds", std::vector<std::string>());
    order.isOvertime = row.value("overFlg", 0) == 1;
    order.deskNo = textOf(row, "deskNo");
    if (desk.empty())
        desk = order.deskNo;
    lines.push_back(std::move(order));
}

/// Whoever books his own service has done it already; one booked for somebody else is still to come. The house
/// has no other way to tell the two apart.
void Sale::readPeople(const json& row, Order& order) const
{
    const bool isService = order.kind == OrderKind::Technician;
    const std::string code = textOf(row, isService ? "staffNo" : "achiNo");
    const std::string pushCode = textOf(row, "pushNo");
    order.staffId = code.empty() && !isService ? "" : staffOfCode(house, code).id;
    order.pushId = pushCode.empty() ? "" : staffOfCode(house, pushCode).id;
    if (!isService)
        return;
    order.clockKind = row.at("type").get<int>();
    demand(order.clockKind > 0 && order.clockKind <= highestClockKind, saleFault, "钟类不正确");
    const bool isDone = order.staffId == call.staff->id;
    order.progress = isDone ? Progress::Finished : Progress::Pending;
    order.endedAt = isDone ? call.now : 0;
}

void Sale::readChargeback(const json& row)
{
    Order* order = house.state.orders.find(row.at("oldOrderId").get<std::string>());
    demand(order && isOpen(*order) && isOfAccount(*order), saleFault, "原消费不存在或已退单");
    demand(order->kind != OrderKind::Ticket && order->kind != OrderKind::RoomFee &&
               order->progress != Progress::Running,
           saleFault, order->itemName + "不能退单");
    const double num = row.at("num").get<double>();
    double taken = num;
    for (const Chargeback& other : chargebacks)
        taken += other.order == order ? other.num : 0;
    demand(num > 0 && taken <= order->num, saleFault, order->itemName + "超过最大可退数量");
    chargebacks.push_back({order, num});
}

bool Sale::isOfAccount(const Order& order) const
{
    return account.card ? order.cardId == account.card->id : order.roomId == account.room->id;
}

void Sale::book()
{
    for (const Chargeback& chargeback : chargebacks) {
        Order& order = *chargeback.order;
        order.num -= chargeback.num;
        if (order.num > 0)
            continue;
        order.num = 0;
        order.status = LineStatus::Void;
        Clock* clock = house.state.clocks.find(order.staffId);
        if (clock && clock->orderId == order.id) {
            clock->orderId.clear();
            clock->workStatus = WorkWaiting;
        }
    }
    const std::string batchId = house.state.newId();
    for (Order& line : lines) {
        line.batchId = batchId;
        assign(house.state.addOrder(line));
    }
}

/// A waiting technician is called for a service that is to come.
void Sale::assign(const Order& order)
{
    Clock* clock = house.state.clocks.find(order.staffId);
    if (order.progress != Progress::Pending || !clock || clock->workStatus != WorkWaiting)
        return;
    clock->workStatus = WorkAssigned;
    clock->orderId = order.id;
}

std::string Sale::areaId() const
{
    for (const Order& line : lines)
        if (!line.areaId.empty())
            return line.areaId;
    return chargebacks.empty() ? std::string() : chargebacks.front().order->areaId;
}

bool Sale::concernsStaff() const
{
    const auto isService = [](const Order& order) { return order.kind == OrderKind::Technician; };
    return std::any_of(lines.begin(), lines.end(), isService) ||
           std::any_of(chargebacks.begin(), chargebacks.end(),
                       [&](const Chargeback& chargeback) { return isService(*chargeback.order); });
}

} // namespace house
