#pragma once

#include "common/Property.h"
#include "vm/module1/CardListModel.h"
#include "vm/module1/RoomSettings.h"

/// Makes a massage room in use a rest room, under a plan of the room.
class MassChgRestVm : public QObject
{
    Q_OBJECT
    PROPERTY(bool, isEnabled, setIsEnabled, true)                                    // false while it saves
    PROPERTY(bool, usedRoomMod, setUsedRoomMod, RoomSettings::ofStore().usedRoomMod) // no hand cards of guests
    CONSTANT_PROPERTY(CardListModel*, pCardListModel, m_cards)                       // who stays in the room
    CONSTANT_PROPERTY(PlanListModel*, pPlanListModel, m_plans)                       // none checked at first

public:
    explicit MassChgRestVm(QObject* parent = nullptr);

    /// Fetches the plans and lists the cards of the room, in a house without hand cards the room's own.
    /// What it needs of the record it copies; without one there is nothing to list.
    Q_INVOKABLE void init(const QString& roomId, const QString& roomNo, RoomDetailDto* room);
    /// Puts a card on the list, if it may be; else it has been said why not, or the user has declined.
    Q_INVOKABLE void getCardInfo(const QString& cardNo, const QString& rfid);
    /// Takes a card off the list; which one, the index tells.
    Q_INVOKABLE void deleteCard(int index, const QString& cardNo);
    Q_INVOKABLE void selectPlan(int index);
    Q_INVOKABLE bool save();

private:
    CardListModel* m_cards;
    PlanListModel* m_plans;
    QString m_roomId;
};
