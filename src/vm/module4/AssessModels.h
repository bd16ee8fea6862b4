#pragma once

#include "common/RowModel.h"
#include "dto/call/AssessRecords.h"

/// The grades that a guest may give.
class AssessInfoModel : public RowModel<assess_info_struct>
{
    Q_OBJECT

public:
    explicit AssessInfoModel(QObject* parent = nullptr)
        : RowModel({field("assessId", &assess_info_struct::assessId),
                    field("assessName", &assess_info_struct::assessName),
                    field("isChecked", &assess_info_struct::isChecked)},
                   parent)
    {
    }

    void update(const QList<assess_info_struct>& grades)
    {
        replace(QVector<assess_info_struct>::fromList(grades));
    }
};

/// An order that can be graded, with grades of its own.
class AssessOrderVm : public QObject
{
    Q_OBJECT
    CONSTANT_PROPERTY(QString, itemName, m_order.itemName)
    CONSTANT_PROPERTY(int, num, m_order.num)
    CONSTANT_PROPERTY(QString, orderId, m_order.orderId)
    CONSTANT_PROPERTY(AssessInfoModel*, pAssessModel, m_grades)

public:
    explicit AssessOrderVm(const assess_order_struct& order)
        : m_order(order), m_grades(new AssessInfoModel(this))
    {
        m_grades->update(order.assessInfo);
    }

private:
    const assess_order_struct m_order;
    AssessInfoModel* m_grades;
};

class AssessOrderModel : public ObjectModel<AssessOrderVm>
{
    Q_OBJECT

public:
    explicit AssessOrderModel(QObject* parent = nullptr)
        : ObjectModel(
              {{"itemName", [](AssessOrderVm* order) { return order->itemName(); }},
               {"orderId", [](AssessOrderVm* order) { return order->orderId(); }},
               {"num", [](AssessOrderVm* order) { return order->num(); }},
               {"assessInfo", [](AssessOrderVm* order) { return QVariant::fromValue(order->pAssessModel()); }}},
              parent)
    {
    }

    void update(const QList<assess_order_struct>& orders)
    {
        QVector<AssessOrderVm*> fresh;
        for (const assess_order_struct& order : orders)
            fresh.append(new AssessOrderVm(order));
        replaceAll(fresh);
    }
};
