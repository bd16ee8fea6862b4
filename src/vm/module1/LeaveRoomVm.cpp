#include "vm/module1/LeaveRoomVm.h"

#include "common/BusyGuard.h"
#include "common/Clock.h"
#include "common/GlobalConfig.h"
#include "dto/room/RoomStatus.h"
#include "print/PosPrint.h"
#include "services/Bba01Service.h"
#include "services/Reply.h"
#include "vm/module1/RoomLookups.h"
#include "vm/module1/RoomSettings.h"

#include <QJsonObject>

namespace {

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
    const GlobalConfig* config = GlobalConfig::getInstance();
    if (config->leave_room_print_count <= 0)
        return;
    slip.leaveTime = Clock::now().toString(QStringLiteral("yyyy-MM-dd HH:mm:ss"));
    slip.operateTime = slip.leaveTime;
    slip.staffCode = config->userInfo()->code();
    slip.staffName = config->userInfo()->name();
    PosPrint::getInstance()->print(PrintLeaveRoom, QVariant::fromValue(slip), {}, {});
}

} // namespace

LeaveRoomVm::LeaveRoomVm(QObject* parent) : QObject(parent), m_cards(new CardListModel(this))
{
    setUsedRoomMod(RoomSettings::ofStore().usedRoomMod);
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
    m_roomId = room->id();
    m_slip = slipOfRoom(*room, cards);
    m_cards->upate(cards);
    setStatus(room->status());
    return true;
}

void LeaveRoomVm::selectCard(int index) { m_cards->onSelected(index); }

void LeaveRoomVm::selectConsumer(int index) { m_cards->onChecked(index); }

bool LeaveRoomVm::isComplete(const QJsonArray& leaving, int consumer) const
{
    if (leaving.isEmpty() && m_cards->rowCount() > 0) {
        MyMessage::getInstance()->ShowError(QStringLiteral("请选择需要离房的手牌"));
        return false;
    }
    if (status() == RoomRest && consumer < 0) {
        MyMessage::getInstance()->ShowError(QStringLiteral("请选择需要计入消费的手牌"));
        return false;
    }
    return true;
}

bool LeaveRoomVm::save()
{
    const QJsonArray leaving = m_cards->selectedIds();
    const int consumer = m_cards->checkedIndex();
    if (!isComplete(leaving, consumer))
        return false;
    QJsonObject data{{QStringLiteral("id"), m_roomId},
                     {QStringLiteral("status"), status()},
                     {QStringLiteral("cardids"), leaving}};
    if (consumer >= 0)
        data.insert(QStringLiteral("cardId"), m_cards->getAll().at(consumer).id);
    const BusyGuard<LeaveRoomVm> guard(this);
    if (!guard)
        return false;
    const leave_room_print_struct slip = m_slip; // the page may be gone when the answer comes
    const auto reply = held(Bba01Service::getInstance()->leaveRoomNew(data));
    if (!isDoneOrShown(*reply))
        return false;
    if (reply->data() && reply->data()->allleave())
        printLeaving(slip);
    return true;
}
