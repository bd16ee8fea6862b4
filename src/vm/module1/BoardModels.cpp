#include "vm/module1/BoardModels.h"

namespace {

template <typename Record>
QVector<room_filter_struct> filterEntriesOf(const Array<Record*>& records)
{
    QVector<room_filter_struct> entries;
    for (const Record* record : records) {
        const QString num = QStringLiteral("%1/%2").arg(record->roomUseSum()).arg(record->roomAllSum());
        entries.append({record->id(), record->name(), num, false});
    }
    return entries;
}

} // namespace

RoomStatusModel::RoomStatusModel(QObject* parent)
    : RowModel({field("statusCode", &room_status_struct::statusCode),
                field("statusName", &room_status_struct::statusName),
                field("isFirst", &room_status_struct::isFirst), field("isLast", &room_status_struct::isLast)},
               parent)
{
}

RoomFilterModel::RoomFilterModel(const char* idRole, const char* nameRole, QObject* parent)
    : RowModel({field(idRole, &room_filter_struct::id), field(nameRole, &room_filter_struct::name),
                field("num", &room_filter_struct::num), field("isChecked", &room_filter_struct::isChecked)},
               parent)
{
}

void RoomFilterModel::toggle(const QString& id)
{
    QVector<room_filter_struct> entries = rows();
    for (room_filter_struct& entry : entries) {
        if (entry.id == id)
            entry.isChecked = !entry.isChecked;
    }
    refresh(entries);
}

QStringList RoomFilterModel::checkedIds() const
{
    QStringList ids;
    for (const room_filter_struct& entry : rows()) {
        if (entry.isChecked)
            ids.append(entry.id);
    }
    return ids;
}

void RoomFilterModel::updateKeepingMarks(QVector<room_filter_struct> entries)
{
    const QStringList checked = checkedIds();
    for (room_filter_struct& entry : entries)
        entry.isChecked = checked.contains(entry.id);
    refresh(entries);
}

void RoomFloorModel::update(const Array<RoomFloorDto*>& floors) { updateKeepingMarks(filterEntriesOf(floors)); }

void RoomTypeModel::upate(const Array<RoomTypeDto*>& types) { updateKeepingMarks(filterEntriesOf(types)); }

RoomOverTimeModel::RoomOverTimeModel(QObject* parent)
    : RowModel(
          {field("roomNo", &room_overtime_struct::roomNo), field("overDesc", &room_overtime_struct::overDesc)},
          parent)
{
}

void RoomOverTimeModel::upate(const Array<RoomOverTimeDto*>& rooms)
{
    constexpr qlonglong minutesPerHour = 60;
    QVector<room_overtime_struct> rows;
    for (const RoomOverTimeDto* room : rooms) {
        const QString overrun = QStringLiteral("超%1时%2分")
                                    .arg(room->overtimes() / minutesPerHour)
                                    .arg(room->overtimes() % minutesPerHour);
        rows.append({room->code(), overrun});
    }
    refresh(rows);
}
