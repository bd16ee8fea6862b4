#pragma once

#include <QList>
#include <QMetaType>
#include <QString>

// What the slips are made from: plain values that the pages fill and hand to PosPrint::print in a QVariant.
// Money is in yuan; times are texts as they print.

/// A line of the order slip and of the service end slip.
struct consumer_item_struct
{
    QString itemName;
    double num = 0;
    double price = 0; ///< of one; only the service end slip prints it
    double amount = 0;
    QString staffNo;
    int status = 0;     ///< 3 is a charge-back
    QString createTime; ///< of the stored line that a charge-back takes back
    QString authNo;     ///< supervisor who allowed it
    QString authName;
    int isJs = 0; ///< 1 is a technician's line
    QString pushNo;
    int serviceType = 0; ///< clock kind, 1 to 6
};

/// The order slip.
struct consumer_print_struct
{
    int orderMode = 1; ///< 1 card, 2 room
    QString area;
    QString orderDate;
    QString cardNo;
    QString roomNo;
    QString deskNo;
    QString staffCode; ///< who printed
    QString staffName;
    QString remark; ///< of the whole order
    QList<consumer_item_struct> items;
};
Q_DECLARE_METATYPE(consumer_print_struct)

struct open_room_print_struct
{
    QString roomNo;
    int openType = 0; ///< 2 is a rest room
    QString planName;
    QString mainCard; ///< first card of the room
    double hours = 0;
    double fee = 0; ///< expected, of a rest room
    QString staffCode;
    QString staffName;
    QString openTime;
};
Q_DECLARE_METATYPE(open_room_print_struct)

struct leave_room_print_struct
{
    QString roomNo;
    QString roomName;
    QString startTime;
    QString leaveTime;
    QString cards; ///< joined with ","
    qlonglong hours = 0;
    QString useTime; ///< "%1时%2分"
    int status = 0;  ///< 3 is a rest room, others a massage room
    QString planName;
    QString staffCode;
    QString staffName;
    QString operateTime;
};
Q_DECLARE_METATYPE(leave_room_print_struct)

/// The service end slip of the timer-first mode.
struct js_server_print
{
    QList<consumer_item_struct> items;
    QString staffNo;
    QString seatNo;
    QString cardNo;
    QString startTime;
    QString realTime;
    QString dueTime;
    QString serviceTime;
};
Q_DECLARE_METATYPE(js_server_print)

struct js_item_struct
{
    QString itemName;
    QString assignType; ///< clock kind, display text
    double price = 0;
    int num = 0;
    double amount = 0;
    QString startTime;
    QString endTime;
};

/// The technician's voucher.
struct end_server_print_struct
{
    QString staffNo;
    QString roomNo;
    QString cardNo;
    int surplus = 0; ///< minutes: above 0 early, below 0 late
    QList<js_item_struct> items;
    QString workNo;
};
Q_DECLARE_METATYPE(end_server_print_struct)

struct buffet_print_struct
{
    QString orderDate;
    QString cardNo;
    QString itemName;
    int num = 0;
    double price = 0;
    QString staffCode;
    QString staffName;
};
Q_DECLARE_METATYPE(buffet_print_struct)

struct sell_sum_order_print_struct
{
    QString name;
    double num = 0;
    double amount = 0;
    bool isParent = false; ///< the sum of a group
};

struct sell_sum_area_print_struct
{
    QString areaName;
    double totalNum = 0;
    double totalAmount = 0;
    QList<sell_sum_order_print_struct> orders;
};

/// The sales report.
struct sell_sum_print_struct
{
    QString startTime;
    QString endTime;
    QString staffCode;
    QList<sell_sum_area_print_struct> areas;
};
Q_DECLARE_METATYPE(sell_sum_print_struct)

struct transfer_order_struct
{
    QString itemName;
    QString cardNo;
    double num = 0;
    double price = 0;
};

struct transfer_print_struct
{
    QString newCardNo;
    QString staffCode;
    double amount = 0;
    QList<transfer_order_struct> orders;
};
Q_DECLARE_METATYPE(transfer_print_struct)
