#pragma once

#include "common/Property.h"
#include "vm/module1/OpeningCards.h"
#include "vm/module1/RoomSettings.h"

/// Opens an empty room as a rest room, under a charging plan that tells its hours.
class OpenRestVm : public QObject
{
    Q_OBJECT
    PROPERTY(bool, isEnabled, setIsEnabled, true)                                    // false while it saves
    PROPERTY(bool, usedRoomMod, setUsedRoomMod, RoomSettings::ofStore().usedRoomMod) // no hand cards of guests
    PROPERTY(bool, openMulti, setOpenMulti, RoomSettings::ofStore().openMulti) // cards of other rooms may join
    CONSTANT_PROPERTY(CardListModel*, pCardListModel, m_cards->model())
    CONSTANT_PROPERTY(PlanListModel*, pPlanListModel, m_plans) // none checked at first

public:
    explicit OpenRestVm(QObject* parent = nullptr);

    /// Fetches the plans; in a house without hand cards it puts the room's own card on the list too.
    Q_INVOKABLE void init(const QString& roomId, const QString& roomNo);
    /// Puts a card on the list, if it may be; else it has been said why not, or the user has declined.
    Q_INVOKABLE void getCardInfo(const QString& cardNo, const QString& rfid);
    /// Takes a card off the list; which one, the index tells.
    Q_INVOKABLE void deleteCard(int index, const QString& cardNo);
    Q_INVOKABLE void checkPlan(int index);
    /// True when the room is open.
    Q_INVOKABLE bool save();

private:
    OpeningCards* m_cards;
    PlanListModel* m_plans;
    QString m_roomId;
    QString m_roomNo;
};
