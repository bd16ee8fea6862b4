#pragma once

#include "print/PrintRecords.h"
#include "vm/module1/RoomSettings.h"

// Hand cards that come to a room in use, go to another one, or leave.

/// Takes further hand cards into a room in use.
class RoomAddCardsVm : public ActionVm
{
    Q_OBJECT
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
    Q_INVOKABLE void deleteCard(int index) { m_newCards->deleteOne(index); }

private:
    CardListModel* m_oldCards;
    CardListModel* m_newCards;
    QString m_roomNo;
};

/// Moves some of a massage room's hand cards to another room, be it empty or in use.
class RoomCardSplitVm : public ActionVm
{
    Q_OBJECT
    CONSTANT_PROPERTY(TempDataModel*, pEmptyRoomModel, m_rooms) // to go to; an entry's id is the room number
    CONSTANT_PROPERTY(CardListModel*, pCardListModel, m_cards)  // the selected ones go

public:
    explicit RoomCardSplitVm(QObject* parent = nullptr);

    /// Copies what it needs of the record and fetches the rooms; nothing without a record.
    Q_INVOKABLE void init(RoomDetailDto* room);
    /// Fetches the rooms whose number fits, all for an empty text. A refusal leaves the list as it is.
    Q_INVOKABLE void getRoomInfo(const QString& roomNo);
    Q_INVOKABLE void selectRoom(int index) { m_rooms->onChecked(index); }
    /// Toggles a card.
    Q_INVOKABLE void selectCard(int index) { m_cards->onSelected(index); }
    Q_INVOKABLE bool save();

private:
    TempDataModel* m_rooms;
    CardListModel* m_cards;
    QString m_roomId;
};

/// Lets hand cards leave a room: all of them, unless the user takes some out. In a rest room one card takes
/// over the room's consumption.
class LeaveRoomVm : public RoomPageVm
{
    Q_OBJECT
    PROPERTY(int, status, setStatus, 0)                        // the room's: 2 massage, 3 rest
    CONSTANT_PROPERTY(CardListModel*, pCardListModel, m_cards) // the selected ones leave, the checked one pays

public:
    explicit LeaveRoomVm(QObject* parent = nullptr) : RoomPageVm(parent), m_cards(new CardListModel(this)) {}

    /// False without a record; what it needs of the record it copies.
    Q_INVOKABLE bool init(RoomDetailDto* room);
    /// Toggles whether a card leaves.
    Q_INVOKABLE void selectCard(int index) { m_cards->onSelected(index); }
    /// Makes this card the one that the room's consumption goes to.
    Q_INVOKABLE void selectConsumer(int index) { m_cards->onChecked(index); }
    /// When the last card has left, the slip is printed too.
    Q_INVOKABLE bool save();

private:
    CardListModel* m_cards;
    leave_room_print_struct m_slip; ///< all of it but what the moment of leaving adds
};
