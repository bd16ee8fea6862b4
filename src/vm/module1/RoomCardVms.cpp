#include "vm/module1/RoomCardVms.h"

#include "common/GlobalConfig.h"
#include "dto/room/RoomStatus.h"
#include "print/PosPrint.h"
#include "services/Bba01Service.h"
#include "vm/shared/CardLookup.h"
#include "vm/shared/SlipStamp.h"

namespace {

/// Which cards stand in which rooms, one after the other; empty when the house names none.
QString refusedCardsText(const RoomAddCardDto* outcome)
{
    QString text;
    if (!outcome)
        return text;
    for (const RoomAddCardErrDto* refused : outcome->roomcard())
        text += QStringLiteral("[%1]手牌已在[%2]包房中").arg(refused->cardNo(), refused->roomNo());
    return text;
}

QList<temp_struct> targetRooms(const Array<RoomDto*>& rooms)
{
    QList<temp_struct> targets;
    for (const RoomDto* room : rooms) {
        if (room->status() < RoomEmpty || room->status() > RoomRest)
            continue;
        const QString state = room->status() == RoomEmpty ? QStringLiteral("空闲") : QStringLiteral("在用");
        targets.append(
            {room->code(), QStringLiteral("%1  -[%2] %3").arg(room->code(), room->typeName(), state)});
    }
    return targets;
}

leave_room_print_struct slipOfRoom(const RoomDetailDto& room, const QList<card_struct>& cards)
{
    leave_room_print_struct slip;
    slip.roomNo = room.roomNo();
    slip.roomName = room.roomName();
    slip.startTime = room.startTime();
    slip.status = room.status();
    slip.hours = room.hours();
    slip.planName = room.planName();
    slip.useTime = QStringLiteral("%1时%2分").arg(room.useTime()).arg(0);
    QStringList numbers;
    for (const card_struct& card : cards)
        numbers.append(card.cardNo);
    slip.cards = numbers.join(QLatin1Char(','));
    return slip;
}

void printLeaving(leave_room_print_struct slip)
{
    if (GlobalConfig::getInstance()->leave_room_print_count <= 0)
        return;
    SlipStamp::now().putOn(slip, &leave_room_print_struct::leaveTime);
    slip.operateTime = slip.leaveTime;
    PosPrint::getInstance()->print(PrintLeaveRoom, QVariant::fromValue(slip), {}, {});
}

} // namespace

RoomAddCardsVm::RoomAddCardsVm(QObject* parent)
    : ActionVm(parent), m_oldCards(new CardListModel(this)), m_newCards(new CardListModel(this))
{
}

bool RoomAddCardsVm::init(const QString& roomNo, RoomDetailDto* room)
{
    if (!room)
        return false;
    m_roomNo = roomNo;
    m_oldCards->upate(cardsOf(*room));
    return true;
}

void RoomAddCardsVm::getCardInfo(const QString& cardNo, const QString& rfid)
{
    takeCard(cardNo, rfid, m_newCards, [this](const CardDetailDto& card) {
        return m_oldCards->hasCardNo(card.cardno()) || m_newCards->hasCardNo(card.cardno());
    });
}

bool RoomAddCardsVm::save()
{
    return act([this] {
        if (!require(m_newCards->rowCount() > 0, "请先添加手牌"))
            return false;
        const auto reply =
            call(&Bba01Service::roomAddCard, {{"roomNo", m_roomNo}, {"cardids", m_newCards->ids()}});
        if (!isOkOrShown(*reply))
            return false;
        const RoomAddCardDto* outcome = reply->data();
        if (outcome && outcome->flg())
            return isDoneOrShown(*reply);
        const QString refused = refusedCardsText(outcome);
        return require(false, refused.isEmpty() ? "操作失败" : qUtf8Printable(refused));
    });
}

RoomCardSplitVm::RoomCardSplitVm(QObject* parent)
    : ActionVm(parent), m_rooms(new TempDataModel(this)), m_cards(new CardListModel(this))
{
}

void RoomCardSplitVm::init(RoomDetailDto* room)
{
    if (!room)
        return;
    m_roomId = room->id();
    m_cards->upate(cardsOf(*room));
    getRoomInfo({});
}

void RoomCardSplitVm::getRoomInfo(const QString& roomNo)
{
    fetch(&Bba01Service::getRoomList, {{"roomno", roomNo}},
          [this](const GetRoomListDto& reply) { m_rooms->upate(targetRooms(reply.data())); });
}

bool RoomCardSplitVm::save()
{
    return act([this] {
        const QJsonArray leaving = m_cards->selectedIds();
        return require(m_rooms->checkedIndex() >= 0, "请选择需要进入的房间") &&
               require(!leaving.isEmpty(), "请选择需要拆离的手牌") &&
               changeSilently(
                   &Bba01Service::unpackRoom,
                   {{"oldRoomId", m_roomId}, {"newRoomNo", m_rooms->checkedId()}, {"cardIds", leaving}});
    });
}

bool LeaveRoomVm::init(RoomDetailDto* room)
{
    if (!room)
        return false;
    QList<card_struct> cards = cardsOf(*room);
    for (card_struct& card : cards)
        card.isSelected = true;
    if (room->status() == RoomRest && !cards.isEmpty())
        cards.first().isChecked = true;
    setRoomId(room->id());
    m_slip = slipOfRoom(*room, cards);
    m_cards->upate(cards);
    setStatus(room->status());
    return true;
}

bool LeaveRoomVm::save()
{
    return act([this] {
        const QJsonArray leaving = m_cards->selectedIds();
        const bool hasConsumer = m_cards->checkedIndex() >= 0;
        if (!require(!leaving.isEmpty() || m_cards->rowCount() == 0, "请选择需要离房的手牌") ||
            !require(status() != RoomRest || hasConsumer, "请选择需要计入消费的手牌"))
            return false;
        QJsonObject data{{"id", roomId()}, {"status", status()}, {"cardids", leaving}};
        if (hasConsumer)
            data.insert("cardId", m_cards->checkedId());
        const leave_room_print_struct slip = m_slip; // the page may be gone when the answer comes
        const auto reply = call(&Bba01Service::leaveRoomNew, data);
        if (!isDoneOrShown(*reply))
            return false;
        if (reply->data() && reply->data()->allleave())
            printLeaving(slip);
        return true;
    });
}
