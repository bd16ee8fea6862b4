#include "vm/module1/RestChgMassVm.h"

#include "common/BusyGuard.h"
#include "services/Bba01Service.h"
#include "vm/module1/RoomLookups.h"

#include <QPointer>

RestChgMassVm::RestChgMassVm(QObject* parent) : QObject(parent), m_cards(new CardListModel(this)) {}

void RestChgMassVm::init(const QString& roomId, const QString& roomNo, RoomDetailDto* room)
{
    m_roomId = roomId;
    if (usedRoomMod())
        getCardInfo(roomNo, {}); // the room's number is the number of its card too
    else if (room)
        m_cards->upate(cardsOf(*room));
}

void RestChgMassVm::getCardInfo(const QString& cardNo, const QString& rfid)
{
    const QPointer<RestChgMassVm> self(this);
    const auto reply = lookUpCardToTake(cardNo, rfid);
    if (!reply || !self)
        return;
    if (m_cards->hasId(reply->data()->id()))
        sayCardIsThere();
    else
        m_cards->addOne(cardOf(*reply->data()));
}

void RestChgMassVm::deleteCard(int index) { m_cards->deleteOne(index); }

void RestChgMassVm::checkCard(int index) { m_cards->onChecked(index); }

bool RestChgMassVm::save()
{
    const BusyGuard<RestChgMassVm> guard(this);
    if (!guard)
        return false;
    if (m_cards->rowCount() == 0) {
        MyMessage::getInstance()->ShowError(QStringLiteral("请先添加手牌"));
        return false;
    }
    const int consumer = m_cards->checkedIndex();
    if (consumer < 0) {
        MyMessage::getInstance()->ShowError(QStringLiteral("请选择需要计入消费的手牌"));
        return false;
    }
    return isDoneOrShown(*held(Bba01Service::getInstance()->restToMassRoom(
        {{QStringLiteral("id"), m_roomId},
         {QStringLiteral("cardids"), m_cards->ids()},
         {QStringLiteral("cardId"), m_cards->getAll().at(consumer).id},
         {QStringLiteral("hours"), hours()},
         {QStringLiteral("newPlanFlg"), 1},
         {QStringLiteral("type"), 1}})));
}
