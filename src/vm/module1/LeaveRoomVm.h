#pragma once

#include "common/Property.h"
#include "print/PrintRecords.h"
#include "vm/module1/CardListModel.h"

/// Lets hand cards leave a room: all of them, unless the user takes some out. In a rest room one card takes
/// over the room's consumption.
class LeaveRoomVm : public QObject
{
    Q_OBJECT
    PROPERTY(bool, isEnabled, setIsEnabled, true)              // false while it saves
    PROPERTY(bool, usedRoomMod, setUsedRoomMod, false)         // the house works without guests' hand cards
    PROPERTY(int, status, setStatus, 0)                        // the room's: 2 massage, 3 rest
    CONSTANT_PROPERTY(CardListModel*, pCardListModel, m_cards) // the selected ones leave, the checked one pays

public:
    explicit LeaveRoomVm(QObject* parent = nullptr);

    /// False without a record; what it needs of the record it copies.
    Q_INVOKABLE bool init(RoomDetailDto* room);
    /// Toggles whether a card leaves.
    Q_INVOKABLE void selectCard(int index);
    /// Makes this card the one that the room's consumption goes to.
    Q_INVOKABLE void selectConsumer(int index);
    /// When the last card has left, the slip is printed too.
    Q_INVOKABLE bool save();

private:
    bool isComplete(const QJsonArray& leaving, int consumer) const;

    CardListModel* m_cards;
    QString m_roomId;
    leave_room_print_struct m_slip; ///< all of it but what the moment of leaving adds
};
