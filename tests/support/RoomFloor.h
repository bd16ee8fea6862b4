#pragma once

#include "dto/room/RoomDetailRecords.h"
#include "services/Reply.h"

#include <QStringList>

#include <functional>

class RoomDto;

/// What a test finds and arranges on the demo house's floor, over the program's own services. A login is needed
/// first.
namespace RoomFloor {

/// Number of the first room that fits; empty without one.
QString roomNoWhere(const std::function<bool(const RoomDto&)>& fits);
QString roomId(const QString& roomNo);
Reply<GetRoomDetailNew> detail(const QString& roomNo);
/// Numbers of the cards inside, each once.
QStringList cardsInside(const QString& roomNo);
/// Numbers of usable cards that stand in no room.
QStringList freeCards(int count);
QString cardId(const QString& cardNo);
/// Opens an empty room with so many free cards as a massage room (2) or rest room (3); its number, empty when
/// the house refused.
QString openRoom(int status, int cards);

} // namespace RoomFloor
