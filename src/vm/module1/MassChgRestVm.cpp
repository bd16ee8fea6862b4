#include "vm/module1/MassChgRestVm.h"

#include "common/BusyGuard.h"
#include "services/Bba01Service.h"
#include "vm/module1/RoomLookups.h"

#include <QPointer>

MassChgRestVm::MassChgRestVm(QObject* parent)
    : QObject(parent), m_cards(new CardListModel(this)), m_plans(new PlanListModel(this))
{
}

void MassChgRestVm::init(const QString& roomId, const QString& roomNo, RoomDetailDto* room)
{
    m_roomId = roomId;
    const QPointer<MassChgRestVm> self(this);
    if (usedRoomMod())
        getCardInfo(roomNo, {}); // the room's number is the number of its card too
    else if (room)
        m_cards->upate(cardsOf(*room));
    else
        return;
    if (self)
        fetchPlans(roomId, m_plans);
}

void MassChgRestVm::getCardInfo(const QString& cardNo, const QString& rfid)
{
    if (m_cards->hasCardNo(cardNo)) {
        sayCardIsThere();
        return;
    }
    const QPointer<MassChgRestVm> self(this);
    const auto reply = lookUpCardToTake(cardNo, rfid);
    if (reply && self)
        m_cards->addOne(cardOf(*reply->data()));
}

void MassChgRestVm::deleteCard(int index, const QString&) { m_cards->deleteOne(index); }

void MassChgRestVm::selectPlan(int index) { m_plans->onChecked(index); }

bool MassChgRestVm::save()
{
    const BusyGuard<MassChgRestVm> guard(this);
    if (!guard)
        return false;
    if (m_cards->rowCount() == 0) {
        MyMessage::getInstance()->ShowError(QStringLiteral("请先添加手牌"));
        return false;
    }
    const int plan = m_plans->checkedIndex();
    if (plan < 0) {
        MyMessage::getInstance()->ShowError(QStringLiteral("请选择计费方案"));
        return false;
    }
    return isDoneOrShown(*held(Bba01Service::getInstance()->massToRestRoom(
        {{QStringLiteral("id"), m_roomId},
         {QStringLiteral("cardids"), m_cards->ids()},
         {QStringLiteral("newPlanFlg"), 1},
         {QStringLiteral("type"), 1},
         {QStringLiteral("planid"), m_plans->getAll().at(plan).id}})));
}
