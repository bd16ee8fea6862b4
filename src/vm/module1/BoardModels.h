#pragma once

#include "common/RowModel.h"
#include "dto/room/RoomFilterRecords.h"
#include "dto/room/RoomRecords.h"

#include <QStringList>

/// A button of the status strip.
struct room_status_struct
{
    QString statusCode; ///< empty for all
    QString statusName;
    bool isFirst = false;
    bool isLast = false;
};

class RoomStatusModel : public RowModel<room_status_struct>
{
    Q_OBJECT

public:
    explicit RoomStatusModel(QObject* parent = nullptr);
};

/// A floor or room type to filter the board by.
struct room_filter_struct
{
    QString id;
    QString name;
    QString num;            ///< in use / all
    bool isChecked = false; ///< the user's choice, which outlives a refresh
};

/// What both filters do; any number of entries can be checked.
class RoomFilterModel : public RowModel<room_filter_struct>
{
public:
    /// Checks the entry with this id, or takes the mark off.
    void toggle(const QString& id);
    /// The ids of the checked entries.
    QStringList checkedIds() const;

protected:
    RoomFilterModel(const char* idRole, const char* nameRole, QObject* parent);

    /// Shows these entries with the marks of the present ones, which are found by id.
    template <typename Record>
    void updateKeepingMarks(const Array<Record*>& records)
    {
        const QStringList checked = checkedIds();
        QVector<room_filter_struct> entries;
        for (const Record* record : records) {
            const QString num = QStringLiteral("%1/%2").arg(record->roomUseSum()).arg(record->roomAllSum());
            entries.append({record->id(), record->name(), num, checked.contains(record->id())});
        }
        refresh(entries);
    }
};

class RoomFloorModel : public RoomFilterModel
{
    Q_OBJECT

public:
    explicit RoomFloorModel(QObject* parent = nullptr) : RoomFilterModel("floorId", "floorName", parent) {}

    void update(const Array<RoomFloorDto*>& floors) { updateKeepingMarks(floors); }
};

class RoomTypeModel : public RoomFilterModel
{
    Q_OBJECT

public:
    explicit RoomTypeModel(QObject* parent = nullptr) : RoomFilterModel("typeId", "typeName", parent) {}

    void upate(const Array<RoomTypeDto*>& types) { updateKeepingMarks(types); }
};

/// A room that is used longer than it was opened for.
struct room_overtime_struct
{
    QString roomNo;
    QString overDesc;
};

class RoomOverTimeModel : public RowModel<room_overtime_struct>
{
    Q_OBJECT

public:
    explicit RoomOverTimeModel(QObject* parent = nullptr);

    void upate(const Array<RoomOverTimeDto*>& rooms);
};
