#include "vm/shared/GuestLookup.h"

#include "common/MyMessage.h"
#include "dto/room/RoomStatus.h"

namespace {

constexpr int cardInUse = 1;
constexpr int openedRestRoom = 2; ///< way of opening that takes consumption whatever the room's status

template <typename Record>
Record* usableOrSaid(Record* found, const char* missing, bool isUsable, const char* unusable)
{
    if (found && isUsable)
        return found;
    MyMessage::getInstance()->ShowError(QString::fromUtf8(found ? unusable : missing));
    return nullptr;
}

} // namespace

QJsonObject guestRequest(const QString& rfid, const QString& cardNo, const QString& roomNo)
{
    QJsonObject asked;
    if (!rfid.isEmpty())
        asked.insert("cardUid", rfid);
    if (!cardNo.isEmpty())
        asked.insert("cardno", cardNo);
    if (!roomNo.isEmpty())
        asked.insert("roomNo", roomNo);
    return asked;
}

HandCardInfoDto* usableCardOrSaid(const GetCardOrderDto& guest)
{
    HandCardInfoDto* card = guest.cardInfo();
    return usableOrSaid(card, "未找到手牌信息", card && card->status() == cardInUse, "当前手牌不处于在用状态");
}

RoomInfoDto* usableRoomOrSaid(const GetCardOrderDto& guest)
{
    RoomInfoDto* room = guest.roomInfo();
    const bool isUsable = room && (room->status() == RoomMassage || room->status() == RoomGuest ||
                                   room->openType() == openedRestRoom);
    return usableOrSaid(room, "未找到房间信息", isUsable, "当前房间不处于可用状态");
}
