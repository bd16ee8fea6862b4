#include "vm/module1/BoardModels.h"

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
    changeAt(find([&](const room_filter_struct& entry) { return entry.id == id; }),
             [](room_filter_struct& entry) { entry.isChecked = !entry.isChecked; });
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
