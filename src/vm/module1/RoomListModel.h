#pragma once

#include "common/RowModel.h"
#include "vm/module1/RoomTile.h"

/// The rooms of the board, or of one type of them, in the order of the back end.
class RoomListModel : public RowModel<RoomTile>
{
    Q_OBJECT

public:
    explicit RoomListModel(QObject* parent = nullptr);

    /// Shows these rooms. As many as before take their places one by one and the view stays where it is.
    void update(const Array<RoomDto*>& rooms);
    /// The first room with exactly this number; false when none of those loaded has it.
    bool find(const QString& roomNo, RoomTile* found) const { return find(&RoomTile::roomNo, roomNo, found); }
    bool findById(const QString& id, RoomTile* found) const { return find(&RoomTile::roomId, id, found); }

private:
    bool find(QString RoomTile::*field, const QString& value, RoomTile* found) const;
};

/// The rooms of one type.
class RoomSortVm : public QObject
{
    Q_OBJECT
    Q_PROPERTY(QString typeName MEMBER typeName NOTIFY typeNameChanged)
    Q_PROPERTY(RoomListModel* pRoomModel MEMBER pRoomModel CONSTANT)

public:
    RoomSortVm(const RoomSortDto& type, QObject* parent);

    QString typeName;
    RoomListModel* const pRoomModel;

Q_SIGNALS:
    void typeNameChanged();
};

/// The rooms by type; owns its groups.
class RoomSortListModel : public RowModel<RoomSortVm*>
{
    Q_OBJECT

public:
    explicit RoomSortListModel(QObject* parent = nullptr);

    /// As many types as before keep their groups, and with them their views.
    void update(const Array<RoomSortDto*>& types);
    /// The same over all groups, in their order.
    bool find(const QString& roomNo, RoomTile* found) const;
    bool findById(const QString& id, RoomTile* found) const;
};
