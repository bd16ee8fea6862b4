#pragma once

#include "common/Property.h"
#include "vm/module1/CardListModel.h"
#include "vm/module1/RoomSettings.h"

/// Makes a rest room in use a massage room. One card takes over what was consumed in the room.
class RestChgMassVm : public QObject
{
    Q_OBJECT
    PROPERTY(bool, isEnabled, setIsEnabled, true)                                    // false while it saves
    PROPERTY(bool, usedRoomMod, setUsedRoomMod, RoomSettings::ofStore().usedRoomMod) // no hand cards of guests
    PROPERTY(bool, openMulti, setOpenMulti, RoomSettings::ofStore().openMulti)       // not asked here
    PROPERTY(int, hours, setHours, RoomSettings::ofStore().defaultTime)
    CONSTANT_PROPERTY(CardListModel*, pCardListModel, m_cards) // who stays; the checked one pays

public:
    explicit RestChgMassVm(QObject* parent = nullptr);

    /// Lists the cards of the room, in a house without hand cards the room's own. What it needs of the record
    /// it copies; without one there is nothing to list.
    Q_INVOKABLE void init(const QString& roomId, const QString& roomNo, RoomDetailDto* room);
    /// Puts a card on the list, if it may be; else it has been said why not, or the user has declined.
    Q_INVOKABLE void getCardInfo(const QString& cardNo, const QString& rfid);
    /// Takes a card off the list.
    Q_INVOKABLE void deleteCard(int index);
    /// Makes this card the one that the room's consumption goes to.
    Q_INVOKABLE void checkCard(int index);
    Q_INVOKABLE bool save();

private:
    CardListModel* m_cards;
    QString m_roomId;
};
