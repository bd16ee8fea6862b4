#include "vm/module3/ClockModels.h"

#include "common/GlobalConfig.h"
#include "dto/staff/ClockKind.h"

namespace {

constexpr int defaultColumns = 8;
constexpr int tooFewColumns = 5;

QString priceText(double price) { return QStringLiteral("¥%1").arg(price, 0, 'f', 2); }

QString minutesText(int minutes) { return QStringLiteral("%1分").arg(minutes); }

server_type_struct kindOf(int code) { return {code, clockKindLabel(code), false, false}; }

} // namespace

ServerItemModel::ServerItemModel(QObject* parent)
    : RowModel({field("itemId", &server_struct::itemId),
                field("itemName", &server_struct::itemName),
                {"price", [](const server_struct& item) { return priceText(item.price); }},
                field("unit", &server_struct::unit),
                field("isChecked", &server_struct::isChecked),
                field("isSelected", &server_struct::isSelected),
                {"times", [](const server_struct& item) { return minutesText(item.times); }},
                {"addTimes", [](const server_struct& item) { return minutesText(item.addTimes); }}},
               parent)
{
}

void ServerItemModel::take(const QList<ServerItemDto*>& items, const QString& checkedId)
{
    QList<server_struct> rows;
    for (const ServerItemDto* item : items) {
        server_struct row;
        row.itemId = item->item_id();
        row.itemName = item->itemName();
        row.price = item->price();
        row.times = item->times();
        row.addTimes = item->add_times();
        row.isChecked = !checkedId.isEmpty() && row.itemId == checkedId;
        rows.append(row);
    }
    upate(rows);
}

ServerTypeModel::ServerTypeModel(QObject* parent)
    : RowModel({field("typeId", &server_type_struct::typeId), field("typeName", &server_type_struct::typeName),
                field("isChecked", &server_type_struct::isChecked),
                field("isSelected", &server_type_struct::isSelected)},
               parent)
{
    replace({kindOf(static_cast<int>(ClockKind::Requested)), kindOf(static_cast<int>(ClockKind::Rotation)),
             kindOf(static_cast<int>(ClockKind::Chosen))});
}

void ServerTypeModel::upate(const QString& codes)
{
    QVector<server_type_struct> kinds;
    for (const QString& code : codes.split(QLatin1Char(','))) {
        if (code.size() == 1 && !clockKindLabel(code.toInt()).isEmpty())
            kinds.append(kindOf(code.toInt()));
    }
    replace(kinds);
}

bool ServerTypeModel::checkKind(int code)
{
    return onChecked(find([code](const server_type_struct& kind) { return kind.typeId == code; }));
}

OnServerItemModel::OnServerItemModel(QObject* parent)
    : RowModel({field("itemId", &on_server_struct::itemId),
                field("itemName", &on_server_struct::itemName),
                field("typeName", &on_server_struct::typeName),
                {"price", [](const on_server_struct& line) { return priceText(line.price); }},
                field("unit", &on_server_struct::unit),
                field("isChecked", &on_server_struct::isChecked),
                field("isSelected", &on_server_struct::isSelected),
                {"times", [](const on_server_struct& line) { return minutesText(line.times); }},
                field("orderStatus", &on_server_struct::order_status),
                field("orderId", &on_server_struct::orderId)},
               parent)
{
}

void OnServerItemModel::take(const QList<OnServerItemDto*>& lines)
{
    QVector<on_server_struct> rows;
    for (const OnServerItemDto* line : lines)
        rows.append({line->orderId(), line->item_id(), line->itemName(), line->statusName(), line->price(),
                     line->unit(), line->times(), line->type(), line->order_status(), line->status()});
    refresh(rows);
}

int serverItemColumns()
{
    const int columns = GlobalConfig::getInstance()->js_item_count;
    return columns > tooFewColumns ? columns : defaultColumns;
}

QList<ServerItemDto*> serverItemsOf(const GetStaffItemList& reply)
{
    QList<ServerItemDto*> items;
    if (!reply.data())
        return items;
    for (const JsCanDoItemDto* item : reply.data()->itemlist())
        items.append(ServerItemDto::fromCanDoItem(*item));
    return items;
}
