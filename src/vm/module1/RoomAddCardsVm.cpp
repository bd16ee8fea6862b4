#include "vm/module1/RoomAddCardsVm.h"

#include "common/BusyGuard.h"
#include "services/Bba01Service.h"
#include "vm/module1/RoomLookups.h"

#include <QJsonObject>

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

} // namespace

RoomAddCardsVm::RoomAddCardsVm(QObject* parent)
    : QObject(parent), m_oldCards(new CardListModel(this)), m_newCards(new CardListModel(this))
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
    const QPointer<RoomAddCardsVm> self(this);
    const auto reply = lookUpCardToTake(cardNo, rfid);
    if (!reply || !self)
        return;
    const CardDetailDto& card = *reply->data();
    if (m_oldCards->hasCardNo(card.cardno()) || m_newCards->hasCardNo(card.cardno()))
        sayCardIsThere();
    else
        m_newCards->addOne(cardOf(card));
}

bool RoomAddCardsVm::save()
{
    const BusyGuard<RoomAddCardsVm> guard(this);
    if (!guard)
        return false;
    MyMessage* message = MyMessage::getInstance();
    if (m_newCards->rowCount() == 0) {
        message->ShowError(QStringLiteral("请先添加手牌"));
        return false;
    }
    const auto reply = held(Bba01Service::getInstance()->roomAddCard(
        {{QStringLiteral("roomNo"), m_roomNo}, {QStringLiteral("cardids"), m_newCards->ids()}}));
    if (!isOkOrShown(*reply))
        return false;
    const RoomAddCardDto* outcome = reply->data();
    if (outcome && outcome->flg()) {
        message->showOk(QStringLiteral("操作成功"));
        return true;
    }
    const QString refused = refusedCardsText(outcome);
    message->ShowError(refused.isEmpty() ? QStringLiteral("操作失败") : refused);
    return false;
}

void RoomAddCardsVm::deleteCard(int index) { m_newCards->deleteOne(index); }
