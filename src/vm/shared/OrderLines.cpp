#include "vm/shared/OrderLines.h"

#include <QJsonObject>

#include <numeric>

namespace {

constexpr int unlistedStatus = 5;
constexpr int firstYearCut = 2024;
constexpr int lastYearCut = 2026;

void addSale(const new_item_struct& line, QJsonObject& sent)
{
    sent.insert("num", line.num);
    if (line.sellFlg == marketPriceSale)
        sent.insert("price", line.price);
    if (!line.tagIds.isEmpty())
        sent.insert("tagIds", QJsonArray::fromStringList(line.tagIds));
    if (line.serverType == GoodsLine || line.serverType == ServiceLine)
        sent.insert("achiNo", line.staffNo);
    if (line.serverType == TechnicianLine) {
        sent.insert("staffNo", line.staffNo);
        sent.insert("pushNo", line.pushNo);
        sent.insert("type", line.serviceType);
        sent.insert("overFlg", line.overFlg);
    }
    if (line.status == GiftLine) {
        sent.insert("isGive", true);
        sent.insert("price", 0);
    } else {
        sent.insert("isNormal", true);
    }
}

QJsonObject requestOf(const new_item_struct& line, const QString& deskNo)
{
    QJsonObject sent{{"id", line.itemId}, {"status", line.status}, {"orderType", line.serverType}};
    if (!line.areaId.isEmpty())
        sent.insert("areaId", line.areaId);
    if (!line.remark.isEmpty())
        sent.insert("remark", line.remark);
    if (line.isDeskNo == 1)
        sent.insert("deskNo", deskNo);
    if (line.status == ChargebackLine) {
        sent.insert("isDel", true);
        sent.insert("oldOrderId", line.oldOrderId);
        sent.insert("num", qAbs(line.num));
    } else {
        addSale(line, sent);
    }
    return sent;
}

consumer_item_struct slipLine(const new_item_struct& line, const QString& authNo, const QString& authName)
{
    consumer_item_struct printed;
    printed.itemName = line.status == GiftLine ? line.itemName + QStringLiteral("[赠送]") : line.itemName;
    printed.num = line.num;
    printed.price = line.price;
    printed.amount = line.amount();
    printed.staffNo = line.staffNo;
    printed.createTime = line.createTime;
    printed.status = line.status;
    printed.authNo = authNo;
    printed.authName = authName;
    if (line.serverType == TechnicianLine) {
        printed.isJs = 1;
        printed.serviceType = line.serviceType;
        printed.pushNo = line.pushNo;
    }
    return printed;
}

} // namespace

NewItemModel::NewItemModel(QObject* parent)
    : RowModel({field("itemName", &new_item_struct::itemName),
                field("num", &new_item_struct::num),
                field("price", &new_item_struct::price),
                {"amount", [](const new_item_struct& line) { return line.amount(); }},
                field("staffNo", &new_item_struct::staffNo),
                field("status", &new_item_struct::status),
                field("sellFlg", &new_item_struct::sellFlg),
                field("remark", &new_item_struct::remark)},
               parent)
{
    setIsLoaded(true); // lines come by hand
}

void NewItemModel::addNum(int index, int num)
{
    changeAt(index, [num](new_item_struct& line) {
        line.num = line.status == ChargebackLine ? qMin(-1, line.num + num) : line.num + num;
    });
}

void NewItemModel::subNum(int index, int num)
{
    changeAt(index, [num](new_item_struct& line) {
        const int least = line.status == ChargebackLine ? static_cast<int>(line.minNum) : 1;
        line.num = qMax(least, line.num - num);
    });
}

double NewItemModel::amount() const
{
    const QVector<new_item_struct> lines = rows();
    return std::accumulate(lines.begin(), lines.end(), 0.0,
                           [](double sum, const new_item_struct& line) { return sum + line.amount(); });
}

bool NewItemModel::needsDeskNo() const
{
    return find([](const new_item_struct& line) { return line.isDeskNo == 1; }) >= 0;
}

OldItemModel::OldItemModel(QObject* parent)
    : RowModel({field("itemName", &old_item_struct::itemName),
                field("num", &old_item_struct::num),
                field("price", &old_item_struct::price),
                {"amount", [](const old_item_struct& line) { return line.num * line.price; }},
                field("staffNo", &old_item_struct::staffNo),
                field("status", &old_item_struct::status),
                field("itemId", &old_item_struct::itemId),
                field("areaName", &old_item_struct::areaName),
                field("orderId", &old_item_struct::orderId),
                field("isPackTicket", &old_item_struct::isPackTicket),
                field("createTime", &old_item_struct::createTime),
                field("serverType", &old_item_struct::serverType)},
               parent)
{
}

void OldItemModel::update(const Array<OldOrderItemDto*>& lines)
{
    QVector<old_item_struct> rows;
    for (const OldOrderItemDto* line : lines) {
        if (line->orderStatus() == unlistedStatus)
            continue;
        rows.append({line->item_id(), line->itemname(), line->price(), static_cast<int>(line->num()),
                     line->orderStatus(), line->staffNo(), line->server_type(), line->id(), line->areaId(),
                     line->areaName(), line->is_pack_ticket() != 0,
                     withoutYear(line->createtime(), lastYearCut)});
    }
    refresh(rows);
}

QString withoutYear(QString time, int lastYear)
{
    for (int year = firstYearCut; year <= lastYear; ++year)
        time.remove(QString::number(year) + QLatin1Char('-'));
    return time;
}

QJsonArray requestOf(const QVector<new_item_struct>& lines, const QString& deskNo)
{
    QJsonArray sent;
    for (const new_item_struct& line : lines)
        sent.append(requestOf(line, deskNo));
    return sent;
}

QList<consumer_item_struct> slipLines(const QVector<new_item_struct>& lines, const QString& authNo,
                                      const QString& authName)
{
    QList<consumer_item_struct> printed;
    for (const new_item_struct& line : lines)
        printed.append(slipLine(line, authNo, authName));
    return printed;
}
