#pragma once

#include "dto/card/CardRecords.h"
#include "services/Reply.h"
#include "vm/shared/CardListModel.h"

#include <functional>

// How pages look hand cards up, and what they refuse. The pages combine the steps in orders of their own.

/// The card with this number, or with this serial; null after a refusal, which has been shown.
Reply<GetHardCardDetail> lookUpCard(const QString& cardNo, const QString& rfid);

/// The card that these fields ask for, if it is in use; else null, and it has been said why.
Reply<GetHardCardDetail> cardInUseOrSaid(const QJsonObject& asked);

/// Whether a guest may use the card; if not, it has been said.
bool isUsableOrSaid(const CardDetailDto& card);

/// Asks whether a card that stands in another room is to be taken all the same.
bool isTakenFromOtherRoom(const CardDetailDto& card);

/// Tells that the card is in the list already.
void sayCardIsThere();

/// Looks the card up and puts it on the list, when a guest may use it, the user takes it out of the room it
/// stands in, if any, and it isn't there already; else it has been said why not. The list may be gone before
/// the answer comes.
void takeCard(const QString& cardNo, const QString& rfid, CardListModel* list,
              const std::function<bool(const CardDetailDto&)>& isThere);
