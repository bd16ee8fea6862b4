#pragma once

#include "common/RowModel.h"
#include "dto/sales/SumRecords.h"
#include "print/PrintRecords.h"

// The sales report: areas, and the lines of each. Money in yuan.

struct sell_sum_item_struct
{
    QString itemName;
    QString unit;
    QString statusVal;
    double num = 0;
    double price = 0;
    double amount = 0;
    double tcAmt = 0;      ///< commission
    bool isParent = false; ///< sums up the group above it
};

class SellSumItemModel : public RowModel<sell_sum_item_struct>
{
    Q_OBJECT

public:
    explicit SellSumItemModel(QObject* parent = nullptr);
};

/// An area of the report.
class SellSumAreaVm : public QObject
{
    Q_OBJECT
    PROPERTY(QString, areaName, setAreaName, {})
    PROPERTY(double, totalNum, setTotalNum, 0)
    PROPERTY(double, totalAmount, setTotalAmount, 0)
    PROPERTY(double, tcAmt, setTcAmt, 0) // commission of all lines
    CONSTANT_PROPERTY(SellSumItemModel*, pSellItemModel, m_lines)

public:
    explicit SellSumAreaVm(const SellSumDto& area);

    sell_sum_area_print_struct printed() const;

private:
    SellSumItemModel* m_lines;
};

class SellSumModel : public ObjectModel<SellSumAreaVm>
{
    Q_OBJECT

public:
    explicit SellSumModel(QObject* parent = nullptr);

    void update(const Array<SellSumDto*>& areas);
};
