#pragma once

#include "common/Property.h"
#include "common/RowModel.h"
#include "dto/staff/GuestOrderRecords.h"

#include <QStringList>

// What stands on the hand cards whose consumption is to move. Money in yuan.

/// A line of a card.
struct order_struct
{
    QString orderId;
    QString cardNo;
    QString itemName;
    QString createTime;
    double num = 0;
    double price = 0;
    double amount = 0;
};

class OrderItemModel : public RowModel<order_struct>
{
    Q_OBJECT

public:
    explicit OrderItemModel(QObject* parent = nullptr);
};

/// A card with its lines.
class HandCardData : public QObject
{
    Q_OBJECT
    PROPERTY(QString, cardNo, setCardNo, {})
    PROPERTY(QString, cardId, setCardId, {})
    PROPERTY(double, num, setNum, 0)       // of all its lines
    PROPERTY(double, amount, setAmount, 0) // of all its lines
    CONSTANT_PROPERTY(OrderItemModel*, pOrderModel, m_orders)

public:
    explicit HandCardData(const HandCardOrderInfoDto& card);

private:
    OrderItemModel* m_orders;
};

class HandCardOrderModel : public ObjectModel<HandCardData>
{
    Q_OBJECT

public:
    explicit HandCardOrderModel(QObject* parent = nullptr);

    QStringList cardNos() const;
};
