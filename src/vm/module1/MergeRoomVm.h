#pragma once

#include "common/Property.h"
#include "dto/room/RoomGroupRecords.h"
#include "vm/module1/CanMergeRoomModel.h"

/// Joins a room with others into a group that is billed as one party.
class MergeRoomVm : public QObject
{
    Q_OBJECT
    PROPERTY(bool, isEnabled, setIsEnabled, true) // false while it saves
    CONSTANT_PROPERTY(CanMergeRoomModel*, pRoomModel, m_groups)

public:
    explicit MergeRoomVm(QObject* parent = nullptr);

    /// False when the rooms couldn't be fetched, which has been shown.
    Q_INVOKABLE bool init(const QString& roomId, const QString& roomNo);
    /// Fetches the rooms whose number fits, all for an empty text. A refusal leaves the list as it is, and
    /// gives false.
    Q_INVOKABLE bool getRoomList(const QString& roomNo);
    Q_INVOKABLE bool save();

private:
    void sortIntoGroups(const Array<CanMergeRoomDto*>& rooms);

    CanMergeRoomModel* m_groups;
    QString m_roomId;
    QString m_roomNo;
};
