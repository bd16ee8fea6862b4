#pragma once

#include "dto/ApiRes.h"

/// An item that a technician can serve.
class JsCanDoItemDto : public QObject
{
    Q_OBJECT
    RECORD(JsCanDoItemDto)
    RECORD_FIELD(QString, itemId)   // item
    RECORD_FIELD(QString, name)     // its name
    RECORD_FIELD(QString, typeName) // unread
    RECORD_FIELD(qlonglong, times)  // duration, minutes
    RECORD_FIELD(double, price)     // yuan
};
RECORD_LIST(JsCanDoItemDto)

class JsCanDoItemListDto : public QObject
{
    Q_OBJECT
    RECORD(JsCanDoItemListDto)
    RECORD_FIELD(Array<JsCanDoItemDto*>, itemlist) // all that he can serve
};

class GetStaffItemList : public ApiRes
{
    Q_OBJECT
    RECORD_ON(GetStaffItemList, ApiRes)
    RECORD_FIELD(JsCanDoItemListDto*, data)
};

/// Such an item in the form that the clock pages work with.
class ServerItemDto : public QObject
{
    Q_OBJECT
    RECORD(ServerItemDto)
    RECORD_FIELD(QString, item_id)  // item
    RECORD_FIELD(QString, itemName) // its name
    RECORD_FIELD(double, price)     // yuan
    RECORD_FIELD(int, times)        // duration, minutes
    RECORD_FIELD(QString, typeId)   // unread
    RECORD_FIELD(QString, pic_path) // unread
    RECORD_FIELD(bool, isAssign)    // unread
    RECORD_FIELD(int, status)       // unread
    RECORD_FIELD(int, add_times)    // added minutes, stays 0 in an item taken over

    /// The caller owns the result.
    static ServerItemDto* fromCanDoItem(const JsCanDoItemDto& item)
    {
        auto* form = new ServerItemDto;
        form->set_item_id(item.itemId());
        form->set_itemName(item.name());
        form->set_times(static_cast<int>(item.times()));
        form->set_price(item.price());
        return form;
    }
};
RECORD_LIST(ServerItemDto)

/// A running service line of a technician.
class OnServerItemDto : public QObject
{
    Q_OBJECT
    RECORD(OnServerItemDto)
    RECORD_FIELD(QString, orderId)      // line, sent as orderId or in orderIds
    RECORD_FIELD(QString, item_id)      // item
    RECORD_FIELD(QString, type_id)      // unread
    RECORD_FIELD(QString, room_id)      // unread
    RECORD_FIELD(QString, hard_card_id) // unread
    RECORD_FIELD(QString, itemName)     // item's name
    RECORD_FIELD(int, type)             // ClockKind
    RECORD_FIELD(int, order_status)     // status of the order
    RECORD_FIELD(int, status)           // status of the line
    RECORD_FIELD(QString, staff_id)     // unread
    RECORD_FIELD(QString, statusName)   // label of the clock kind
    RECORD_FIELD(double, price)         // yuan
    RECORD_FIELD(QString, unit)         // unit
    RECORD_FIELD(int, times)            // duration, minutes
};
RECORD_LIST(OnServerItemDto)
