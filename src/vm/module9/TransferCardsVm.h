#pragma once

#include "vm/shared/CardListModel.h"
#include "vm/shared/LyingCard.h"
#include "vm/shared/ReadingVm.h"

/// Collects the hand cards whose consumption is to move.
class TransferCardsVm : public ReadingVm
{
    Q_OBJECT
    CONSTANT_PROPERTY(CardListModel*, pCardModel, m_cards)

public:
    explicit TransferCardsVm(QObject* parent = nullptr);

    /// Looks a card up and puts it on the list.
    Q_INVOKABLE void addNew(const QString& cardNo, const QString& rfid);
    Q_INVOKABLE void remove(int index) { m_cards->deleteOne(index); }
    /// The cards' numbers; none, and it has been said, when there is no card.
    Q_INVOKABLE QStringList save();

    void readingExec(QString text) override;
    void readingHandExec(QString text) override { readingExec(text); }

private:
    void getCardInfo(const QString& cardNo, const QString& rfid);

    CardListModel* m_cards;
    LyingCard m_lying;
};
