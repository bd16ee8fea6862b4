#include "src/state/Sale.h"

#include "src/state/Asked.h"

#include <algorithm>

namespace house {
namespace {

using nlohmann::json;

constexpr int chargebackStatus = 3;
constexpr int marketPriceSale = 2;
constexpr int waiting = 1;
constexpr int assigned = 6;
constexpr int highestClockKind = 6;

Reply refuse(const std::string& msg) { return Reply::refuse("ORDER_ERR_0001", msg); }

std::string textOf(const json& row, const char* field) { return row.value(field, std::string()); }

} // namespace

Sale::Sale(House& house, const Call& call, Account account) : house(house), call(call), account(account) {}

Reply Sale::read(const json& items)
{
    if (items.empty())
        return refuse("请先添加消费项目");
    for (const json& row : items)
        if (Reply reply = readLine(row); !reply.isGood())
            return reply;
    return Reply::done();
}

Reply Sale::readLine(const json& row)
{
    const int status = row.at("status").get<int>();
    const Item* item = house.state.items.find(row.at("id").get<std::string>());
    if (status == chargebackStatus) {
        const Reply right = needsRight("405761142306377733", "418098003150376961");
        return right.isGood() ? readChargeback(row) : right;
    }
    if (!item || static_cast<int>(item->kind) != row.at("orderType").get<int>())
        return refuse("项目不存在或已变更，请刷新后再试");
    if (status == static_cast<int>(LineStatus::Gift)) {
        const Reply right = needsRight("405761200963719170", "419172939348578306");
        return right.isGood() ? readNew(row, *item, LineStatus::Gift) : right;
    }
    if (status != static_cast<int>(LineStatus::Normal))
        return refuse("消费状态不正确");
    const Reply right = needsRight("405761091685322753", "418097899945332740");
    return right.isGood() ? readNew(row, *item, LineStatus::Normal) : right;
}

Reply Sale::needsRight(const char* onCard, const char* onRoom) const
{
    if (holdsRight(house, call, account.card ? onCard : onRoom))
        return Reply::done();
    return Reply::refuse("AUTH_ERR_0002", "您没有此操作的权限，请主管授权");
}

Reply Sale::readNew(const json& row, const Item& item, LineStatus status)
{
    Order order = lineOf(item);
    order.status = status;
    order.num = row.at("num").get<double>();
    if (order.num <= 0)
        return refuse(item.name + "的数量须大于0");
    if (item.sellFlg == marketPriceSale && status == LineStatus::Normal)
        order.price = roundMoney(row.at("price").get<double>());
    if (order.price < 0)
        return refuse(item.name + "的价格不正确");
    order.areaId = textOf(row, "areaId");
    if (!order.areaId.empty() && !house.seed.area(order.areaId))
        return refuse("营业区域不存在");
    if (Reply reply = readPeople(row, order); !reply.isGood())
        return reply;
    // A position typed at the end of a service may be a room.
    const Room* position = house.state.roomByCode(textOf(row, "roomNo"));
    order.roomId = account.room ? account.room->id : position && isInUse(*position) ? position->id : "";
    order.cardId = account.card ? account.card->id : "";
    order.deskNo = textOf(row, "deskNo");
    order.remark = textOf(row, "remark");
    order.tagIds = textsOf(row, "tagIds");
    order.minutes = static_cast<int>(item.minutes * order.num);
    order.enteredBy = call.staff->id;
    order.deviceId = call.terminal->id;
    order.createdAt = call.now;
    lines.push_back(std::move(order));
    return Reply::done();
}

/// Whoever books his own service has done it already; one booked for somebody else is still to come. The house
/// has no other way to tell the two apart.
Reply Sale::readPeople(const json& row, Order& order) const
{
    const bool isService = order.kind == OrderKind::Technician;
    const std::string code = textOf(row, isService ? "staffNo" : "achiNo");
    const std::string pushCode = textOf(row, "pushNo");
    const Staff* person = house.seed.staffByCode(code);
    const Staff* pusher = house.seed.staffByCode(pushCode);
    if ((!person && !code.empty()) || (isService && !person))
        return refuse("工号" + code + "不存在");
    if (!pusher && !pushCode.empty())
        return refuse("推钟人工号" + pushCode + "不存在");
    order.staffId = person ? person->id : "";
    order.pushId = pusher ? pusher->id : "";
    if (!isService)
        return Reply::done();
    order.clockKind = row.at("type").get<int>();
    order.isOvertime = row.value("overFlg", 0) == 1;
    if (order.clockKind < 1 || order.clockKind > highestClockKind)
        return refuse("钟类不正确");
    order.progress = person == call.staff ? Progress::Finished : Progress::Pending;
    order.endedAt = order.progress == Progress::Finished ? call.now : 0;
    return Reply::done();
}

Reply Sale::readChargeback(const json& row)
{
    Order* order = house.state.orders.find(row.at("oldOrderId").get<std::string>());
    const double num = row.at("num").get<double>();
    if (!order || !isOpen(*order) || !isOfAccount(*order))
        return refuse("原消费不存在或已退单");
    if (order->kind == OrderKind::Ticket || order->kind == OrderKind::RoomFee)
        return refuse(order->itemName + "不能退单");
    if (order->progress == Progress::Running)
        return refuse(order->itemName + "正在服务中，不能退单");
    double taken = num;
    for (const Chargeback& other : chargebacks)
        taken += other.order == order ? other.num : 0;
    if (num <= 0 || taken > order->num)
        return refuse(order->itemName + "超过最大可退数量");
    chargebacks.push_back({order, num});
    return Reply::done();
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
            clock->workStatus = waiting;
        }
    }
    const std::string batchId = house.state.newId();
    for (Order& line : lines) {
        line.id = house.state.newId();
        line.batchId = batchId;
        assign(house.state.orders.add(line));
    }
}

/// A waiting technician is called for a service that is to come.
void Sale::assign(const Order& order)
{
    Clock* clock = house.state.clocks.find(order.staffId);
    if (order.progress != Progress::Pending || !clock || clock->workStatus != waiting)
        return;
    clock->workStatus = assigned;
    clock->orderId = order.id;
}

std::string Sale::areaId() const
{
    for (const Order& line : lines)
        if (!line.areaId.empty())
            return line.areaId;
    return chargebacks.empty() ? std::string() : chargebacks.front().order->areaId;
}

std::string Sale::deskNo() const
{
    for (const Order& line : lines)
        if (!line.deskNo.empty())
            return line.deskNo;
    return {};
}

bool Sale::concernsStaff() const
{
    const auto isService = [](const Order& order) { return order.kind == OrderKind::Technician; };
    return std::any_of(lines.begin(), lines.end(), isService) ||
           std::any_of(chargebacks.begin(), chargebacks.end(),
                       [&](const Chargeback& chargeback) { return isService(*chargeback.order); });
}

} // namespace house
