#pragma once

#include "common/RowModel.h"
#include "dto/card/SelfRecords.h"
#include "vm/shared/CounterVm.h"

/// A self entry.
struct card_order_struct
{
    QString cardNo;
    QString createTime;
};

class CardOrderModel : public RowModel<card_order_struct>
{
    Q_OBJECT

public:
    explicit CardOrderModel(QObject* parent = nullptr);

    void update(const Array<TrmSelfOrderDetailDto*>& entries);
};

/// The entries of one kind of card.
struct card_type_struct
{
    QString typeName;
    int sumNum = 0;
};

class CardTypeModel : public RowModel<card_type_struct>
{
    Q_OBJECT

public:
    explicit CardTypeModel(QObject* parent = nullptr);

    void update(const Array<SelfCardSumDto*>& sums);
};

/// Self entry: each card that is presented takes one of the terminal's one item, against the tickets it holds.
class Module7Vm : public CounterVm
{
    Q_OBJECT
    PROPERTY(QString, itemName, setItemName, {})
    PROPERTY(int, totalCount, setTotalCount, 0) // portions given out, as the back end counts
    CONSTANT_PROPERTY(CardOrderModel*, pOrderModel, m_orders)
    CONSTANT_PROPERTY(CardTypeModel*, pCardTypeModel, m_types)

public:
    explicit Module7Vm(QObject* parent = nullptr);

    Q_INVOKABLE void init();
    /// Enters one for a card, by its number or by its serial.
    Q_INVOKABLE void doConsume(const QString& cardNo, const QString& rfid);

protected:
    void take(const QString& cardNo, const QString& rfid) override { doConsume(cardNo, rfid); }

private:
    QString enter(const QString& cardNo, const QString& rfid);
    QString enter(const CardSelfOrderDto& card);
    QString refused(const ApiRes& reply);
    QString refused(const char* reason);
    void getSum();
    void getDetail();

    CardOrderModel* m_orders;
    CardTypeModel* m_types;
};
