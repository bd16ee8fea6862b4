#pragma once

#include "common/Property.h"
#include "vm/module1/OpeningCards.h"
#include "vm/module1/RoomSettings.h"

/// Opens an empty room as a massage room, for a number of hours.
class OpenMassVm : public QObject
{
    Q_OBJECT
    PROPERTY(bool, isEnabled, setIsEnabled, true) // false while it saves
    PROPERTY(QString, roomId, setRoomId, {})
    PROPERTY(int, hours, setHours, RoomSettings::ofStore().defaultTime)
    PROPERTY(bool, usedRoomMod, setUsedRoomMod, RoomSettings::ofStore().usedRoomMod) // no hand cards of guests
    PROPERTY(bool, openMulti, setOpenMulti, RoomSettings::ofStore().openMulti) // cards of other rooms may join
    CONSTANT_PROPERTY(CardListModel*, pCardListModel, m_cards->model())

public:
    explicit OpenMassVm(QObject* parent = nullptr);

    /// In a house without hand cards it puts the room's own card on the list.
    Q_INVOKABLE void init(const QString& roomId, const QString& roomNo);
    /// Puts a card on the list, if it may be; else it has been said why not, or the user has declined.
    Q_INVOKABLE void getCardInfo(const QString& cardNo, const QString& rfid);
    /// Takes a card off the list.
    Q_INVOKABLE void deleteCard(int index);
    /// True when the room is open.
    Q_INVOKABLE bool save();

private:
    bool isJoiningConfirmed() const;

    OpeningCards* m_cards;
    QString m_roomNo;
};
