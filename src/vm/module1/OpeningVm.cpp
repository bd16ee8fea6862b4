#include "vm/module1/OpeningVm.h"

#include "app/MainClass.h"
#include "print/PosPrint.h"
#include "services/Bba01Service.h"
#include "vm/shared/CardLookup.h"
#include "vm/shared/SlipStamp.h"

#include <cmath>

void OpeningVm::init(const QString& roomId, const QString& roomNo)
{
    setRoomId(roomId);
    m_roomNo = roomNo;
    if (usedRoomMod())
        getCardInfo(roomNo, {}); // the room's number is the number of its card too
}

void OpeningVm::getCardInfo(const QString& cardNo, const QString& rfid)
{
    const QPointer<OpeningVm> self(this);
    const bool isAsked = !openMulti();
    const auto reply = lookUpCard(cardNo, rfid);
    if (!reply || !isUsableOrSaid(*reply->data()))
        return;
    const CardDetailDto& card = *reply->data();
    const bool isElsewhere = !card.roomNo().isEmpty();
    if ((isElsewhere && isAsked && !isTakenFromOtherRoom(card)) || !self)
        return;
    if (isElsewhere)
        m_elsewhere.insert(card.cardno(), card.roomNo());
    if (m_cards->hasId(card.id()))
        sayCardIsThere();
    else
        m_cards->addOne(card);
}

void OpeningVm::deleteCard(int index, const QString&)
{
    m_elsewhere.remove(m_cards->row(index).cardNo);
    m_cards->deleteOne(index);
}

open_room_print_struct OpeningVm::slip(const QString& planName, double hours) const
{
    open_room_print_struct slip;
    slip.roomNo = m_roomNo;
    slip.planName = planName;
    slip.mainCard = m_cards->row(0).cardNo;
    slip.hours = hours;
    return slip;
}

bool OpeningVm::opened(const ApiRes& reply, open_room_print_struct slip)
{
    if (!isOkOrShown(reply))
        return false;
    SlipStamp::now().putOn(slip, &open_room_print_struct::openTime);
    PosPrint::getInstance()->print(PrintOpenRoom, QVariant::fromValue(slip), {}, {});
    MyMessage::getInstance()->showOk(QStringLiteral("操作成功"));
    return true;
}

/// Asks once about all cards that stand in other rooms.
bool OpenMassVm::isJoiningConfirmed() const
{
    QString question;
    for (auto it = elsewhere().begin(); it != elsewhere().end(); ++it)
        question += QStringLiteral("手牌%1在%2房间中\n").arg(it.key(), it.value());
    question += QStringLiteral("是否确认联房？？？");
    return MainClass::getInstance()->showMsgConfirm(QStringLiteral("提示"), question) == 1;
}

bool OpenMassVm::save()
{
    return act([this] {
        const bool isNeedCard = RoomSettings::ofStore().isNeedCard;
        if (!require(!isNeedCard || pCardListModel()->rowCount() > 0, "请先添加手牌"))
            return false;
        // The page may be gone after the question.
        QJsonObject data{{"id", roomId()}, {"cardids", pCardListModel()->ids()}, {"hours", hours()}};
        const open_room_print_struct opening = slip(QStringLiteral("按摩房"), hours());
        if (openMulti() && !elsewhere().isEmpty()) {
            if (!isJoiningConfirmed())
                return false;
            data.insert("isConn", 1);
        }
        return open(&Bba01Service::openMassRoom, data, opening);
    });
}

void OpenRestVm::init(const QString& roomId, const QString& roomNo)
{
    const QPointer<OpenRestVm> self(this);
    OpeningVm::init(roomId, roomNo);
    if (self)
        fetchPlans(m_plans, roomId);
}

bool OpenRestVm::save()
{
    return act([this] {
        if (!require(pCardListModel()->rowCount() > 0, "请先添加手牌") ||
            !require(m_plans->checkedIndex() >= 0, "请选择计费方案"))
            return false;
        const plan_struct plan = m_plans->row(m_plans->checkedIndex());
        open_room_print_struct opening = slip(plan.name, plan.min_time);
        opening.openType = 2;
        opening.fee = std::trunc(plan.min_fee);
        return open(&Bba01Service::openRestRoom,
                    {{"id", roomId()},
                     {"cardids", pCardListModel()->ids()},
                     {"newPlanFlg", 1},
                     {"type", 1},
                     {"planid", plan.id}},
                    opening);
    });
}
