#pragma once

#include "dto/call/CallRecords.h"

#include <QList>

/// A grade that a guest can give.
class AssessInfoDto : public QObject
{
    Q_OBJECT
    RECORD(AssessInfoDto)
    RECORD_FIELD(QString, id)   // grade
    RECORD_FIELD(QString, name) // its label
};
RECORD_LIST(AssessInfoDto)

/// An order that has no grade yet.
class AssessOrderDto : public QObject
{
    Q_OBJECT
    RECORD(AssessOrderDto)
    RECORD_FIELD(QString, hardOrderId) // order
    RECORD_FIELD(QString, name)        // item
    RECORD_FIELD(int, num)             // quantity
};
RECORD_LIST(AssessOrderDto)

/// What a guest's evaluation starts from.
class AssessListDto : public QObject
{
    Q_OBJECT
    RECORD(AssessListDto)
    RECORD_FIELD(Array<AssessInfoDto*>, assessInfos)   // grades to choose from
    RECORD_FIELD(Array<AssessOrderDto*>, assessOrders) // orders of the card without a grade
    RECORD_FIELD(ComplateCallCardDto*, hardCardInfo)   // the card
    RECORD_FIELD(ComplateCallStaffDto*, staffUserInfo) // the operator
};

class GetHardCardAssessOrders : public ApiRes
{
    Q_OBJECT
    RECORD_ON(GetHardCardAssessOrders, ApiRes)
    RECORD_FIELD(AssessListDto*, data)
};

/// A grade as a row of the evaluation dialog.
struct assess_info_struct
{
    QString assessId;
    QString assessName;
    bool isChecked = false;
};

inline bool operator==(const assess_info_struct& one, const assess_info_struct& other)
{
    return one.assessId == other.assessId && one.assessName == other.assessName &&
           one.isChecked == other.isChecked;
}

/// An order as a row of the evaluation dialog, with grades of its own to check.
struct assess_order_struct
{
    QString orderId;
    QString itemName;
    int num = 0; ///< quantity
    QList<assess_info_struct> assessInfo;
};

inline bool operator==(const assess_order_struct& one, const assess_order_struct& other)
{
    return one.orderId == other.orderId && one.itemName == other.itemName && one.num == other.num &&
           one.assessInfo == other.assessInfo;
}
