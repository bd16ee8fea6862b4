#pragma once

/// What a room is in; the values are those of the wire. 7 and above are further states of use that only the
/// back end tells apart.
enum RoomStatus : int {
    RoomEmpty = 1,
    RoomMassage = 2, ///< in use as a massage room
    RoomRest = 3,    ///< in use as a rest room
    RoomCleaning = 4,
    RoomOccupied = 5, ///< for something else than guests
    RoomGuest = 6,
};
