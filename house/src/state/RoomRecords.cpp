#include "src/state/RoomRecords.h"

#include "src/Unread.h"
#include "src/state/RoomDesk.h"

#include <algorithm>

namespace house {
namespace {

using nlohmann::json;

constexpr Seconds minute = 60;
constexpr Seconds hour = 60 * minute;
constexpr std::size_t clockStart = 11; ///< of the time of day in a time's text

} // namespace

RoomRecords::RoomRecords(const House& house, Seconds now) : house(house), now(now)
{
    for (const Order& order : house.state.orders)
        if (!order.roomId.empty() && isOpen(order))
            lines[order.roomId].push_back(&order);
    for (const Room& room : house.state.rooms)
        if (!room.groupKey.empty())
            groups[room.groupKey].push_back(&room);
}

const RoomRecords::Lines& RoomRecords::linesOf(const Room& room) const
{
    static const Lines none;
    const auto found = lines.find(room.id);
    return found == lines.end() ? none : found->second;
}

std::string RoomRecords::floorName(const Room& room) const
{
    return house.state.floors.find(room.floorId)->name;
}

std::string RoomRecords::typeName(const Room& room) const
{
    return house.state.roomTypes.find(room.typeId)->name;
}

double RoomRecords::due(const Room& room) const
{
    double sum = 0;
    if (!room.isSettled)
        for (const Order* order : linesOf(room))
            sum += amountOf(*order);
    return roundMoney(sum);
}

std::string RoomRecords::lastService(const Room& room) const
{
    Seconds running = 0;
    Seconds ended = 0;
    for (const Order* order : linesOf(room)) {
        if (order->progress == Progress::Running)
            running = std::max(running, order->startedAt + order->minutes * minute);
        ended = std::max(ended, order->endedAt);
    }
    if (running > 0)
        return "预计下钟 " + timeText(running).substr(clockStart, 5);
    return ended > 0 ? "末次下钟 " + timeText(ended).substr(clockStart, 5) : std::string();
}

std::string RoomRecords::staffCodes(const Room& room, Progress progress) const
{
    std::vector<std::string> codes;
    for (const Order* order : linesOf(room)) {
        const std::string code = codeOf(staff(order->staffId));
        if (order->kind == OrderKind::Technician && order->progress == progress &&
            std::find(codes.begin(), codes.end(), code) == codes.end())
            codes.push_back(code);
    }
    return joined(codes);
}

std::string RoomRecords::groupRooms(const Room& room) const
{
    std::vector<std::string> codes;
    const auto found = groups.find(room.groupKey);
    if (found != groups.end())
        for (const Room* member : found->second)
            codes.push_back(member->code);
    return joined(codes);
}

json RoomRecords::board(const Room& room) const
{
    std::vector<std::string> cards;
    for (const std::string& id : room.cardIds)
        cards.push_back(house.state.cardNumber(id));
    const OccupationType* occupation = house.state.occupationTypes.find(room.occupationTypeId);
    const Staff* cleaner = staff(room.cleanerId);
    return withUnread({{"id", room.id},
                       {"code", room.code},
                       {"name", room.name},
                       {"floorname", floorName(room)},
                       {"typename", typeName(room)},
                       {"status", static_cast<int>(room.status)},
                       {"statusStr", statusWord(room.status)},
                       {"openType", room.openType},
                       {"cardnos", joined(cards)},
                       {"staffnos", staffCodes(room, Progress::Running)},
                       {"completedStaffnos", staffCodes(room, Progress::Finished)},
                       {"cooName", occupation ? occupation->name : ""},
                       {"hours", room.hours},
                       {"surplus", minutesLeft(room, now)},
                       {"lastSvrTime", lastService(room)},
                       {"groupRoom", groupRooms(room)},
                       {"needPayAmount", due(room)},
                       {"isSettle", room.isSettled},
                       {"roomLock", room.isReserved},
                       {"remark", room.remark},
                       {"cleanerNo", codeOf(cleaner)},
                       {"cleanerName", nameOf(cleaner)},
                       {"cleanFlg", room.cleanFlg},
                       {"dirtyFlg", room.isDirty},
                       {"innum", room.cardIds.size()},
                       {"num", house.state.roomTypes.find(room.typeId)->capacity}},
                      {"start_time", "last_time", "group_key", "srcAlias"},
                      {"callCount", "groupDepositAmt", "groupPayAmt"}, {"isStaffOrder", "todayLeave"});
}

json RoomRecords::detail(const Room& room) const
{
    const Plan* plan = house.state.plans.find(room.planId);
    const Staff* opener = staff(room.openedBy);
    const long long surplus = minutesLeft(room, now);
    const bool isMassage = room.status == RoomStatus::Massage;
    json calls = json::array();
    for (const CallContent& content : house.state.callContents)
        if (isInUse(room) && isMassage)
            calls.push_back(
                {{"cardno", ""}, {"cardId", ""}, {"contId", content.id}, {"contName", content.name}});
    return withUnread({{"id", room.id},
                       {"roomNo", room.code},
                       {"roomName", typeName(room)},
                       {"floorName", floorName(room)},
                       {"status", static_cast<int>(room.status)},
                       {"statusStr", statusWord(room.status)},
                       {"openType", room.openType},
                       {"hours", room.hours},
                       {"startTime", timeText(room.openedAt)},
                       {"useTime", room.openedAt > 0 ? (now - room.openedAt) / hour : 0},
                       {"overTime", std::max(0LL, -surplus)},
                       {"surplus", surplus},
                       {"planName", plan        ? plan->name
                                    : isMassage ? "按摩房"
                                                : ""},
                       {"remark", room.remark},
                       {"group_key", room.groupKey},
                       {"groupRoom", groupRooms(room)},
                       {"staffNo", codeOf(opener)},
                       {"staffName", nameOf(opener)},
                       {"cardlist", cardEntries(room)},
                       {"calllist", calls}},
                      {"start_time", "planId", "cooRemark", "occType", "lockNo", "roomUid"}, {"dai"});
}

/// A card stands once for itself and once for each further line that it has in the room.
json RoomRecords::cardEntries(const Room& room) const
{
    json entries = json::array();
    for (const std::string& cardId : room.cardIds) {
        const Lines& ordered = linesOf(room);
        const auto count = std::count_if(ordered.begin(), ordered.end(),
                                         [&](const Order* order) { return order->cardId == cardId; });
        for (long i = 0; i < std::max(1L, static_cast<long>(count)); ++i)
            entries.push_back({{"cardno", house.state.cardNumber(cardId)},
                               {"cardId", cardId},
                               {"contId", ""},
                               {"contName", ""}});
    }
    return entries;
}

json RoomRecords::consumption(const Room& room) const
{
    json list = json::array();
    for (const Order* order : linesOf(room)) {
        const bool isOpen = order->progress == Progress::Pending || order->progress == Progress::Running;
        list.push_back(withUnread({{"id", order->id},
                                   {"cardNo", house.state.cardNumber(order->cardId)},
                                   {"srcOldCardNo", order->oldCardNo},
                                   {"itemName", order->itemName},
                                   {"num", order->num},
                                   {"price", order->price},
                                   {"amount", amountOf(*order)},
                                   {"staffNo", codeOf(staff(order->staffId))},
                                   {"pushNo", codeOf(staff(order->pushId))},
                                   {"cmtFlg", isOpen ? 0 : 1},
                                   {"createtime", timeText(order->createdAt)}},
                                  {"itemId", "startTime", "endTime", "workerType", "staffId"}, {"serverType"}));
    }
    return list;
}

json RoomRecords::candidate(const Room& room) const
{
    return withUnread({{"roomId", room.id},
                       {"roomNo", room.code},
                       {"floorName", floorName(room)},
                       {"hourseName", typeName(room)},
                       {"groupKey", room.groupKey}},
                      {"roomName", "groupRoom", "statusStr"}, {"status"});
}

const char* statusWord(RoomStatus status)
{
    static constexpr const char* words[] = {"", "空闲房", "按摩房", "休息房", "清扫房", "特殊占用房", "客房"};
    return words[static_cast<int>(status)];
}

std::string codeOf(const Staff* person) { return person ? person->code : std::string(); }

std::string nameOf(const Staff* person) { return person ? person->name : std::string(); }

} // namespace house
