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
};

/// The rooms of one type.
class RoomSortVm : public QObject
{
    Q_OBJECT
    Q_PROPERTY(QString typeName MEMBER typeName NOTIFY typeNameChanged)
    Q_PROPERTY(RoomListModel* pRoomModel MEMBER pRoomModel CONSTANT)

public:
    explicit RoomSortVm(const RoomSortDto& type);

    QString typeName;
    RoomListModel* const pRoomModel;

Q_SIGNALS:
    void typeNameChanged();
};

/// The rooms by type.
class RoomSortListModel : public ObjectModel<RoomSortVm>
{
    Q_OBJECT

public:
    explicit RoomSortListModel(QObject* parent = nullptr);

    /// As many types as before keep their groups, and with them their views.
    void update(const Array<RoomSortDto*>& types);
    /// The place of the group of this type, -1 without one.
    Q_INVOKABLE int indexOf(const QString& typeName) const;
};
