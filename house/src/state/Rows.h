#pragma once

#include <cstdint>
#include <string>
#include <vector>

/// What the house keeps. Ids are 18 digits; a link to another row is that row's id, empty without one.
/// Times are Unix seconds, 0 when nothing has happened yet; money is in yuan.
namespace house {

using Seconds = std::int64_t;

enum class RoomStatus { Empty = 1, Massage = 2, Rest = 3, Cleaning = 4, Occupied = 5, Guest = 6 };

/// What is no more than its name.
struct Named
{
    std::string id;
    std::string name;
};

using Floor = Named;
using OccupationType = Named; ///< why nobody may have a room
using CallContent = Named;    ///< a service that guests can call to their room
using Category = Named;
using TasteChoice = Named;

struct RoomType
{
    std::string id;
    std::string name;
    int capacity = 1;   ///< beds or chairs
    std::string areaId; ///< the work area that serves its guests
};

struct Room
{
    std::string id;
    std::string code; ///< the number on the door
    std::string name;
    std::string floorId;
    std::string typeId;
    RoomStatus status = RoomStatus::Empty;
    int openType = 0; ///< 0 not open, 1 for guests of the house, 2 a guest room let as in a hotel
    int hours = 0;
    Seconds openedAt = 0;
    std::string planId;
    std::string groupKey; ///< shared by the rooms of a group
    std::string occupationTypeId;
    std::string remark;
    std::string openedBy; ///< staff id
    std::string cleanerId;
    int cleanFlg = 0; ///< 0 not begun, 1 begun, 2 finished
    bool isDirty = false;
    bool isReserved = false;
    bool isSettled = false;
    std::vector<std::string> cardIds; ///< the guests inside; changed by State::seat() alone
};

struct Plan
{
    std::string id;
    std::string name;
    std::string roomTypeId;
    int hours = 0;
    double fee = 0;
};

enum class CardStatus { Free = 0, InUse = 1, Lost = 2, Locked = 3 };

/// A guest's hand card.
struct Card
{
    std::string id;
    std::string number; ///< printed on it
    std::string uid;    ///< the serial that a reader delivers
    std::string type;
    CardStatus status = CardStatus::Free;
    Seconds openedAt = 0;
    Seconds closedAt = 0;
    std::string roomId; ///< changed by State::seat() alone
    std::string remark;
};

using Cards = std::vector<Card*>;

struct CardType
{
    std::string id;
    std::string name;
    int sex = 1; ///< 1 male, 0 female
};

enum class LineStatus { Normal = 1, Gift = 2, Void = 5 };
enum class OrderKind { Goods = 1, Technician = 2, Help = 3, RoomFee = 4, Ticket = 5 };
enum class Progress { None, Pending, Running, Finished };

/// One line of consumption on a card, a room, or both.
struct Order
{
    std::string id;
    std::string batchId; ///< shared by the lines that were saved together
    std::string cardId;
    std::string roomId;
    std::string oldCardNo; ///< the card it was moved from
    std::string itemId;
    std::string itemName;
    OrderKind kind = OrderKind::Goods;
    double num = 1;
    double price = 0;
    LineStatus status = LineStatus::Normal;
    std::string areaId;
    std::string staffId; ///< who the line counts for; the technician of a service
    std::string pushId;
    std::string enteredBy; ///< staff id
    std::string deviceId;
    Seconds createdAt = 0;
    Progress progress = Progress::None; ///< of a service
    int clockKind = 0;                  ///< 1 requested ... 6 added
    int minutes = 0;                    ///< planned, for the whole line
    Seconds startedAt = 0;
    Seconds endedAt = 0;
    bool isSelfEntry = false; ///< booked by the guest at a counter
    bool isAssessed = false;
    bool isOvertime = false; ///< of a service
    std::string remark;
    std::vector<std::string> tasteIds;
    std::string deskNo;
    Seconds paidAt = 0; ///< the guest has paid and gone; his card's next guest sees nothing of it
};

constexpr int marketPriceSale = 2; ///< the price is made at the sale

struct Item
{
    std::string id;
    std::string name;
    double price = 0;
    std::string typeId;
    std::vector<std::string> areaIds; ///< where it is sold
    std::string picture;
    OrderKind kind = OrderKind::Goods;
    bool needsDesk = false;
    long tagId = 0;  ///< the tastes that go with it, 0 without
    int sellFlg = 1; ///< or marketPriceSale
    int isPackTicket = 0;
    std::string unit;
    std::string workerType;
    int minutes = 0;
    std::string initials; ///< for the search by first letters
    std::string barCode;
    double commission = 0; ///< share of the amount that goes to the person it counts for
    std::string cardType;  ///< tickets: the one kind of card it is for
};

struct TasteGroup
{
    std::string id;
    std::string name;
    long tagId = 0;
    bool isMultiple = false;
    std::vector<TasteChoice> choices;
};

enum WorkStatus { WorkWaiting = 1, WorkServing = 2, WorkOffDuty = 3, WorkAssigned = 6 };

/// What a member of staff is doing.
struct Clock
{
    std::string id; ///< the staff id
    int workStatus = WorkWaiting;
    std::string orderId;        ///< the pending or running service
    Seconds timerStartedAt = 0; ///< the clock without an item; 0 while it stands
};

struct Meal
{
    std::string id;
    std::string name;
    std::string startTime; ///< "HH:mm"
    std::string endTime;   ///< "HH:mm", of the same day
    std::string itemId;
    std::string childItemId;
};

struct MealEntry
{
    std::string mealId;
    std::string cardId;
    std::string itemId;
    int num = 1;
    bool isChild = false;
    Seconds at = 0;
};

} // namespace house
