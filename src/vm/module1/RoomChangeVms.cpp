#include "vm/module1/RoomChangeVms.h"

#include "services/Bba01Service.h"
#include "vm/shared/CardLookup.h"

void ChgKindVm::init(const QString& roomId, const QString& roomNo, RoomDetailDto* room)
{
    setRoomId(roomId);
    if (usedRoomMod())
        getCardInfo(roomNo, {}); // the room's number is the number of its card too
    else if (room)
        m_cards->upate(cardsOf(*room));
}

void ChgKindVm::deleteCard(int index, const QString&) { m_cards->deleteOne(index); }

void MassChgRestVm::init(const QString& roomId, const QString& roomNo, RoomDetailDto* room)
{
    const QPointer<MassChgRestVm> self(this);
    ChgKindVm::init(roomId, roomNo, room);
    if (self && (usedRoomMod() || room))
        fetchPlans(m_plans, roomId);
}

void MassChgRestVm::getCardInfo(const QString& cardNo, const QString& rfid)
{
    if (pCardListModel()->hasCardNo(cardNo))
        sayCardIsThere();
    else
        takeCard(cardNo, rfid, pCardListModel(), [](const CardDetailDto&) { return false; });
}

bool MassChgRestVm::save()
{
    return act([this] {
        return require(pCardListModel()->rowCount() > 0, "请先添加手牌") &&
               require(m_plans->checkedIndex() >= 0, "请选择计费方案") &&
               change(&Bba01Service::massToRestRoom, {{"id", roomId()},
                                                      {"cardids", pCardListModel()->ids()},
                                                      {"newPlanFlg", 1},
                                                      {"type", 1},
                                                      {"planid", m_plans->row(m_plans->checkedIndex()).id}});
    });
}

void RestChgMassVm::getCardInfo(const QString& cardNo, const QString& rfid)
{
    CardListModel* cards = pCardListModel();
    takeCard(cardNo, rfid, cards, [cards](const CardDetailDto& card) { return cards->hasId(card.id()); });
}

bool RestChgMassVm::save()
{
    return act([this] {
        const CardListModel* cards = pCardListModel();
        return require(cards->rowCount() > 0, "请先添加手牌") &&
               require(cards->checkedIndex() >= 0, "请选择需要计入消费的手牌") &&
               change(&Bba01Service::restToMassRoom, {{"id", roomId()},
                                                      {"cardids", cards->ids()},
                                                      {"cardId", cards->checkedId()},
                                                      {"hours", hours()},
                                                      {"newPlanFlg", 1},
                                                      {"type", 1}});
    });
}

void RestChgPlanVm::init(const QString& roomId)
{
    m_roomId = roomId;
    fetchPlans(m_plans, roomId);
}

bool RestChgPlanVm::save()
{
    return act([this] {
        const int plan = m_plans->checkedIndex();
        return require(plan >= 0, "请选择计费方案") &&
               change(&Bba01Service::changeFeePlan,
                      {{"roomId", m_roomId}, {"newPlanFlg", 1}, {"planId", m_plans->row(plan).id}});
    });
}

bool RestAddTimeVm::save()
{
    return act([this] {
        return change(&Bba01Service::restRoomAddTime, {{"roomId", m_roomId}, {"hours", hours()}});
    });
}

void RoomRemarkVm::init(RoomDetailDto* room)
{
    if (!room)
        return;
    setRoomId(room->id());
    setRemark(room->remark());
}

bool RoomRemarkVm::save()
{
    return act([this] { return change(&Bba01Service::setRemark, {{"id", roomId()}, {"remark", remark()}}); });
}
