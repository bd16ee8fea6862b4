#include "vm/module1/RoomCardSplitVm.h"

#include "common/BusyGuard.h"
#include "dto/room/RoomStatus.h"
#include "services/Bba01Service.h"
#include "services/Reply.h"

#include <QJsonObject>

namespace {

QList<temp_struct> targetRooms(const Array<RoomDto*>& rooms)
{
    QList<temp_struct> targets;
    for (const RoomDto* room : rooms) {
        if (room->status() < RoomEmpty || room->status() > RoomRest)
            continue;
        const QString state = room->status() == RoomEmpty ? QStringLiteral("空闲") : QStringLiteral("在用");
        temp_struct target;
        target.tempId = room->code();
        target.tempName = QStringLiteral("%1  -[%2] %3").arg(room->code(), room->typeName(), state);
        targets.append(target);
    }
    return targets;
}

} // namespace

RoomCardSplitVm::RoomCardSplitVm(QObject* parent)
    : QObject(parent), m_rooms(new TempDataModel(this)), m_cards(new CardListModel(this))
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
    const QPointer<RoomCardSplitVm> self(this);
    const auto reply = held(Bba01Service::getInstance()->getRoomList({{QStringLiteral("roomno"), roomNo}}));
    if (isOkOrShown(*reply) && self)
        m_rooms->upate(targetRooms(reply->data()));
}

void RoomCardSplitVm::selectRoom(int index) { m_rooms->onChecked(index); }

void RoomCardSplitVm::selectCard(int index) { m_cards->onSelected(index); }

bool RoomCardSplitVm::save()
{
    const BusyGuard<RoomCardSplitVm> guard(this);
    if (!guard)
        return false;
    if (m_rooms->checkedIndex() < 0) {
        MyMessage::getInstance()->ShowError(QStringLiteral("请选择需要进入的房间"));
        return false;
    }
    const QJsonArray leaving = m_cards->selectedIds();
    if (leaving.isEmpty()) {
        MyMessage::getInstance()->ShowError(QStringLiteral("请选择需要拆离的手牌"));
        return false;
    }
    const auto reply =
        held(Bba01Service::getInstance()->unpackRoom({{QStringLiteral("oldRoomId"), m_roomId},
                                                      {QStringLiteral("newRoomNo"), m_rooms->checkedId()},
                                                      {QStringLiteral("cardIds"), leaving}}));
    return isOkOrShown(*reply);
}
