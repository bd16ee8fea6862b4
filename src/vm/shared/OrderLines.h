#pragma once

#include "common/RowModel.h"
#include "dto/sales/OrderRecords.h"
#include "print/PrintRecords.h"

#include <QJsonArray>
#include <QStringList>

// The lines of an order: those that are being entered, those that the back end has, and what a save sends and
// prints.

enum LineStatus : int { NormalLine = 1, GiftLine = 2, ChargebackLine = 3 };
enum LineKind : int { GoodsLine = 1, TechnicianLine = 2, ServiceLine = 3, TicketLine = 5 };

/// An item that is priced at the sale.
constexpr int marketPriceSale = 2;

/// A line that is only on the terminal yet. Money in yuan.
struct new_item_struct
{
    QString itemId;
    QString itemName;
    double price = 0;
    int num = 0;        ///< negative on a chargeback line
    int serverType = 0; ///< LineKind, sent as orderType
    int isDeskNo = 0;
    QString staffNo; ///< who it is credited to, or the technician
    QString pushNo;  ///< technician lines: who sent him
    int status = NormalLine;
    QString areaId;
    QString oldOrderId;  ///< chargeback: the stored line
    int overFlg = 0;     ///< technician lines: 1 overtime
    int serviceType = 0; ///< technician lines: ClockKind
    QString remark;
    QStringList tagIds;
    double minNum = 0; ///< chargeback: the lowest num
    int sellFlg = 0;
    int times = 0;      ///< minutes of one
    QString createTime; ///< chargeback: of the stored line

    double amount() const { return num * price; }
};

class NewItemModel : public RowModel<new_item_struct>
{
    Q_OBJECT

public:
    explicit NewItemModel(QObject* parent = nullptr);

    /// Within the line's limits: at least one, and a chargeback between all of the stored line and one.
    void addNum(int index, int num);
    void subNum(int index, int num);
    double amount() const;
    bool needsDeskNo() const;
};

/// A line that the back end has. Money in yuan.
struct old_item_struct
{
    QString itemId;
    QString itemName;
    double price = 0;
    int num = 0;
    int status = 0;
    QString staffNo;
    int serverType = 0;
    QString orderId;
    QString areaId;
    QString areaName;
    bool isPackTicket = false;
    QString createTime;
};

class OldItemModel : public RowModel<old_item_struct>
{
    Q_OBJECT

public:
    explicit OldItemModel(QObject* parent = nullptr);

    void update(const Array<OldOrderItemDto*>& lines);
};

/// A time without its year, where that is one of the years of now.
QString withoutYear(QString time, int lastYear);

/// The lines as a save sends them.
QJsonArray requestOf(const QVector<new_item_struct>& lines, const QString& deskNo);

/// The lines as the slip has them.
QList<consumer_item_struct> slipLines(const QVector<new_item_struct>& lines, const QString& authNo,
                                      const QString& authName);
