#pragma once

#include "vm/module1/RoomLookups.h"
#include "vm/shared/ActionVm.h"

/// What the store has set for opening and changing rooms; the defaults hold until its settings have arrived.
struct RoomSettings
{
    bool usedRoomMod = false; ///< the house works without guests' hand cards
    bool openMulti = false;   ///< cards of other rooms may be opened together
    bool isNeedCard = false;  ///< a massage room needs a card
    int defaultTime = 1;      ///< what a massage room is opened for, hours, at least 1

    static RoomSettings ofStore();
};

/// Base of the room pages that may fetch charging plans.
class PlanPageVm : public ActionVm
{
    Q_OBJECT

protected:
    using ActionVm::ActionVm;

    /// Fills the list with the room's plans, none of them checked; a refusal is shown and leaves it as it is.
    void fetchPlans(PlanListModel* plans, const QString& roomId);
};

/// Base of the room pages that go by hand cards, or in a house without them by the room's own.
class RoomPageVm : public PlanPageVm
{
    Q_OBJECT
    PROPERTY(bool, usedRoomMod, setUsedRoomMod, RoomSettings::ofStore().usedRoomMod)
    PROPERTY(bool, openMulti, setOpenMulti, RoomSettings::ofStore().openMulti)
    PROPERTY(QString, roomId, setRoomId, {})

protected:
    using PlanPageVm::PlanPageVm;
};
