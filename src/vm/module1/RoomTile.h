#pragma once

#include "dto/room/RoomRecords.h"

/// What a tile of the board shows and what a tap on it needs, made once from a room's record. Texts that don't
/// apply to the room's state are empty.
struct RoomTile
{
    QString roomId;
    QString roomNo;
    QString roomName; ///< empty when it says no more than the number
    QString roomFloor;
    QString roomNum;
    QString backColor;
    QString stateMark; ///< the state in one character, for whom the colour tells nothing
    QString stateName; ///< the same in full
    QString payAmount;
    QString statusVal; ///< the state in words, or who cleans
    QString cardList;
    QString staffList;
    QString finishStaff;
    QString groupRoom;
    QString usedTime; ///< hours:minutes, not padded
    QString leftTime; ///< the same, or by how much the room is overrun
    QString roomCleaner;
    QString remark;
    QString lastSvrTime;
    qint64 surplus = 0; ///< minutes left, negative when overrun
    bool roomLock = false;
    int openType = 0;
    bool dirtyFlg = false;
    int status = 0;
    int cleanFlg = 0;
};

/// Amounts are shown where the terminal is told to.
RoomTile tileOf(const RoomDto& room, bool isShowAmount);

/// The tile for who doesn't see it: number, state, and the time left where there is one.
QString spokenName(const RoomTile& tile);

/// The small texts of the tile by rank, what may be lost first being last: cards, technicians, amount, remark,
/// group, technicians who have ended, last service. Empty when all of them are, else with one sign between two.
QString linesOf(const RoomTile& tile);
