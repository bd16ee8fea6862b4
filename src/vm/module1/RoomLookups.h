#pragma once

#include "dto/card/CardRecords.h"
#include "services/Reply.h"

class PlanListModel;

// What several room pages ask the back end and the user. The pages combine them in orders of their own.

/// The card with this number, or with this serial; null after a refusal, which has been shown.
Reply<GetHardCardDetail> lookUpCard(const QString& cardNo, const QString& rfid);

/// Whether a guest may use the card; if not, it has been said.
bool isUsableOrSaid(const CardDetailDto& card);

/// Asks whether a card that stands in another room is to be taken all the same.
bool isTakenFromOtherRoom(const CardDetailDto& card);

/// The card, when a guest may use it and the user takes it out of the room it stands in, if any; else null, and
/// whatever there was to say has been said.
Reply<GetHardCardDetail> lookUpCardToTake(const QString& cardNo, const QString& rfid);

/// Tells that the card is in the list already.
void sayCardIsThere();

/// Fills the model with the room's charging plans, none of them checked; a refusal is shown and leaves it as it
/// is. The model may be gone before the answer comes.
bool fetchPlans(const QString& roomId, PlanListModel* model);

/// Whether a change was made; the user is told so, or why not.
bool isDoneOrShown(const ApiRes& reply);
