#pragma once

#include "common/Property.h"
#include "vm/module1/CardListModel.h"

/// Takes further hand cards into a room in use.
class RoomAddCardsVm : public QObject
{
    Q_OBJECT
    PROPERTY(bool, isEnabled, setIsEnabled, true)                // false while it saves
    CONSTANT_PROPERTY(CardListModel*, pOldCardModel, m_oldCards) // in the room already
    CONSTANT_PROPERTY(CardListModel*, pNewCardModel, m_newCards) // to be added

public:
    explicit RoomAddCardsVm(QObject* parent = nullptr);

    /// False without a record; what it needs of the record it copies.
    Q_INVOKABLE bool init(const QString& roomNo, RoomDetailDto* room);
    /// Puts a card on the list of new ones, if it may be; else it has been said why not, or the user has
    /// declined.
    Q_INVOKABLE void getCardInfo(const QString& cardNo, const QString& rfid);
    /// True when the room has taken all new cards.
    Q_INVOKABLE bool save();
    /// Takes a new card off the list.
    Q_INVOKABLE void deleteCard(int index);

private:
    CardListModel* m_oldCards;
    CardListModel* m_newCards;
    QString m_roomNo;
};
