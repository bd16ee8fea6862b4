#pragma once

#include "dto/card/CardOrderRecords.h"

#include <QJsonObject>
#include <QStringList>

// How pages find the guest that consumption is booked on, and what they refuse.

/// What a guest is asked for with: a card by serial or number, or a room; what is empty isn't sent.
QJsonObject guestRequest(const QString& rfid, const QString& cardNo, const QString& roomNo);

/// The card, when it may be booked on; null when not, which has been said.
HandCardInfoDto* usableCardOrSaid(const GetCardOrderDto& guest);

/// The room, likewise.
RoomInfoDto* usableRoomOrSaid(const GetCardOrderDto& guest);
