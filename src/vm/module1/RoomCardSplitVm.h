#pragma once

#include "common/Property.h"
#include "vm/module1/CardListModel.h"

/// Moves some of a massage room's hand cards to another room, be it empty or in use.
class RoomCardSplitVm : public QObject
{
    Q_OBJECT
    PROPERTY(bool, isEnabled, setIsEnabled, true) // false while it saves
    CONSTANT_PROPERTY(TempDataModel*, pEmptyRoomModel,
                      m_rooms) // rooms to go to; an entry's id is the room number
    CONSTANT_PROPERTY(CardListModel*, pCardListModel, m_cards) // the selected ones go

public:
    explicit RoomCardSplitVm(QObject* parent = nullptr);

    /// Copies what it needs of the record and fetches the rooms; nothing without a record.
    Q_INVOKABLE void init(RoomDetailDto* room);
    /// Fetches the rooms whose number fits, all for an empty text. A refusal leaves the list as it is.
    Q_INVOKABLE void getRoomInfo(const QString& roomNo);
    Q_INVOKABLE void selectRoom(int index);
    /// Toggles a card.
    Q_INVOKABLE void selectCard(int index);
    Q_INVOKABLE bool save();

private:
    TempDataModel* m_rooms;
    CardListModel* m_cards;
    QString m_roomId;
};
