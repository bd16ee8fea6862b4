#include "vm/module1/OpenRestVm.h"

#include "common/BusyGuard.h"
#include "services/Bba01Service.h"
#include "services/Reply.h"
#include "vm/module1/RoomLookups.h"

#include <QPointer>

#include <cmath>

OpenRestVm::OpenRestVm(QObject* parent)
    : QObject(parent), m_cards(new OpeningCards(openMulti(), this)), m_plans(new PlanListModel(this))
{
}

void OpenRestVm::init(const QString& roomId, const QString& roomNo)
{
    m_roomId = roomId;
    m_roomNo = roomNo;
    const QPointer<OpenRestVm> self(this);
    if (usedRoomMod())
        getCardInfo(roomNo, {}); // the room's number is the number of its card too
    if (self)
        fetchPlans(roomId, m_plans);
}

void OpenRestVm::getCardInfo(const QString& cardNo, const QString& rfid) { m_cards->take(cardNo, rfid); }

void OpenRestVm::deleteCard(int index, const QString&) { m_cards->remove(index); }

void OpenRestVm::checkPlan(int index) { m_plans->onChecked(index); }

bool OpenRestVm::save()
{
    const BusyGuard<OpenRestVm> guard(this);
    if (!guard)
        return false;
    MyMessage* message = MyMessage::getInstance();
    if (pCardListModel()->rowCount() == 0) {
        message->ShowError(QStringLiteral("请先添加手牌"));
        return false;
    }
    const int checked = m_plans->checkedIndex();
    if (checked < 0) {
        message->ShowError(QStringLiteral("请选择计费方案"));
        return false;
    }
    const plan_struct plan = m_plans->getAll().at(checked);
    open_room_print_struct slip; // the page may be gone when the answer comes
    slip.openType = 2;
    slip.roomNo = m_roomNo;
    slip.planName = plan.name;
    slip.mainCard = m_cards->mainCard();
    slip.hours = plan.min_time;
    slip.fee = std::trunc(plan.min_fee);
    const auto reply =
        held(Bba01Service::getInstance()->openRestRoom({{QStringLiteral("id"), m_roomId},
                                                        {QStringLiteral("cardids"), pCardListModel()->ids()},
                                                        {QStringLiteral("newPlanFlg"), 1},
                                                        {QStringLiteral("type"), 1},
                                                        {QStringLiteral("planid"), plan.id}}));
    if (!isOkOrShown(*reply))
        return false;
    printOpening(slip);
    message->showOk(QStringLiteral("操作成功"));
    return true;
}
