#include "vm/module9/HandCardOrders.h"

OrderItemModel::OrderItemModel(QObject* parent)
    : RowModel({field("id", &order_struct::orderId), field("createTime", &order_struct::createTime),
                field("num", &order_struct::num), field("itemName", &order_struct::itemName),
                field("price", &order_struct::price), field("amount", &order_struct::amount)},
               parent)
{
}

HandCardData::HandCardData(const HandCardOrderInfoDto& card) : m_orders(new OrderItemModel(this))
{
    setCardNo(card.cardinfo()->cardno());
    setCardId(card.cardinfo()->id());
    QVector<order_struct> rows;
    for (const OrderInfoDto* order : card.orderinfo()) {
        rows.append({order->orderId(), order->cardno(), order->itemName(), order->createtime(), order->num(),
                     order->price(), order->num() * order->price()});
        setNum(num() + rows.last().num);
        setAmount(amount() + rows.last().amount);
    }
    m_orders->replace(rows);
}

HandCardOrderModel::HandCardOrderModel(QObject* parent)
    : ObjectModel({{"cardNo", [](HandCardData* card) { return card->cardNo(); }},
                   {"num", [](HandCardData* card) { return card->num(); }},
                   {"amount", [](HandCardData* card) { return card->amount(); }},
                   {"orderModel", [](HandCardData* card) { return QVariant::fromValue(card->pOrderModel()); }}},
                  parent)
{
    setIsLoaded(true); // cards are chosen by hand
}

QStringList HandCardOrderModel::cardNos() const
{
    QStringList numbers;
    for (const HandCardData* card : rows())
        numbers.append(card->cardNo());
    return numbers;
}
