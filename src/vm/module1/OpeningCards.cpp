#include "vm/module1/OpeningCards.h"

#include "common/Clock.h"
#include "common/GlobalConfig.h"
#include "print/PosPrint.h"
#include "vm/module1/RoomLookups.h"

#include <QPointer>

OpeningCards::OpeningCards(bool openMulti, QObject* parent)
    : QObject(parent), m_cards(new CardListModel(this)), m_openMulti(openMulti)
{
}

void OpeningCards::take(const QString& cardNo, const QString& rfid)
{
    const QPointer<OpeningCards> self(this);
    const bool isAsked = !m_openMulti;
    const auto reply = lookUpCard(cardNo, rfid);
    if (!reply)
        return;
    const CardDetailDto& card = *reply->data();
    if (!isUsableOrSaid(card))
        return;
    const bool isElsewhere = !card.roomNo().isEmpty();
    if (isElsewhere && isAsked && !isTakenFromOtherRoom(card))
        return;
    if (!self)
        return;
    if (isElsewhere)
        m_elsewhere.insert(card.cardno(), card.roomNo());
    if (m_cards->hasId(card.id())) {
        sayCardIsThere();
        return;
    }
    m_cards->addOne(cardOf(card));
}

void OpeningCards::remove(int index)
{
    m_elsewhere.remove(m_cards->getAll().value(index).cardNo);
    m_cards->deleteOne(index);
}

QString OpeningCards::mainCard() const { return m_cards->getAll().value(0).cardNo; }

void printOpening(open_room_print_struct slip)
{
    const UserDto& user = *GlobalConfig::getInstance()->userInfo();
    slip.openTime = Clock::now().toString(QStringLiteral("yyyy-MM-dd HH:mm:ss"));
    slip.staffCode = user.code();
    slip.staffName = user.name();
    PosPrint::getInstance()->print(PrintOpenRoom, QVariant::fromValue(slip), {}, {});
}
