#pragma once

#include "dto/room/RoomGroupRecords.h"
#include "vm/shared/ActionVm.h"
#include "vm/shared/ChoiceModels.h"

/// Rooms that a room can be joined with: those of one group, or all that stand alone.
class CanMergeRoomVm : public QObject
{
    Q_OBJECT
    PROPERTY(QString, name, setName, {})
    PROPERTY(QString, key, setKey, {})                     // the group's, empty for rooms that stand alone
    CONSTANT_PROPERTY(TempDataModel*, pRoomModel, m_rooms) // the selected ones are joined

public:
    explicit CanMergeRoomVm(QObject* parent = nullptr) : QObject(parent), m_rooms(new TempDataModel(this)) {}
    CanMergeRoomVm(const QString& key, const QList<temp_struct>& rooms);

    /// Toggles this room alone, whatever its group.
    Q_INVOKABLE void selectRoom(int index) { m_rooms->onSelected(index); }

private:
    TempDataModel* m_rooms;
};

/// The groups of rooms that a room can be joined with.
class CanMergeRoomModel : public ObjectModel<CanMergeRoomVm>
{
    Q_OBJECT

public:
    explicit CanMergeRoomModel(QObject* parent = nullptr);
};

/// Joins a room with others into a group that is billed as one party.
class MergeRoomVm : public ActionVm
{
    Q_OBJECT
    CONSTANT_PROPERTY(CanMergeRoomModel*, pRoomModel, m_groups)

public:
    explicit MergeRoomVm(QObject* parent = nullptr) : ActionVm(parent), m_groups(new CanMergeRoomModel(this)) {}

    /// False when the rooms couldn't be fetched, which has been shown.
    Q_INVOKABLE bool init(const QString& roomId, const QString& roomNo);
    /// Fetches the rooms whose number fits, all for an empty text. A refusal leaves the list as it is, and
    /// gives false.
    Q_INVOKABLE bool getRoomList(const QString& roomNo);
    Q_INVOKABLE bool save();

private:
    void take(const QVector<CanMergeRoomVm*>& groups);

    CanMergeRoomModel* m_groups;
    QString m_roomId;
    QString m_roomNo;
};
