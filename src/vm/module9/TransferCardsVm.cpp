#include "vm/module9/TransferCardsVm.h"

#include "vm/shared/CardLookup.h"

TransferCardsVm::TransferCardsVm(QObject* parent) : ReadingVm(parent), m_cards(new CardListModel(this))
{
    m_reader.listenToCards();
}

void TransferCardsVm::readingExec(QString text)
{
    // One that stays on the reader would be refused twice a second, as being there already.
    if (!text.isEmpty() && m_lying.isNew(text))
        getCardInfo({}, text);
}

void TransferCardsVm::addNew(const QString& cardNo, const QString& rfid)
{
    if (!rfid.isEmpty())
        m_lying.see(rfid);
    getCardInfo(cardNo, rfid);
}

void TransferCardsVm::getCardInfo(const QString& cardNo, const QString& rfid)
{
    QJsonObject asked;
    if (!cardNo.isEmpty())
        asked.insert("cardno", cardNo);
    if (!rfid.isEmpty())
        asked.insert("cardUid", rfid);
    const QPointer<TransferCardsVm> self(this);
    const auto reply = cardInUseOrSaid(asked);
    if (!self || !reply)
        return;
    if (m_cards->hasCardNo(reply->data()->cardno()))
        sayCardIsThere();
    else
        m_cards->addOne(*reply->data());
}

QStringList TransferCardsVm::save()
{
    QStringList numbers;
    for (const card_struct& card : m_cards->rows())
        numbers.append(card.cardNo);
    require(!numbers.isEmpty(), "转账手牌不能为空");
    return numbers;
}
