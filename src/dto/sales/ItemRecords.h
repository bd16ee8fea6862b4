#pragma once

#include "dto/ApiRes.h"

/// A category of the catalogue.
class ItemTypeDto : public QObject
{
    Q_OBJECT
    RECORD(ItemTypeDto)
    RECORD_FIELD(QString, name) // on the tab
    RECORD_FIELD(QString, id)   // category, sent as typeId
};
RECORD_LIST(ItemTypeDto)

class ItemTypeListDto : public QObject
{
    Q_OBJECT
    RECORD(ItemTypeListDto)
    RECORD_FIELD(Array<ItemTypeDto*>, typeList) // all categories
};

class GetTypeList : public ApiRes
{
    Q_OBJECT
    RECORD_ON(GetTypeList, ApiRes)
    RECORD_FIELD(ItemTypeListDto*, data)
};

/// An item for sale. Money in yuan.
class ItemDto : public QObject
{
    Q_OBJECT
    RECORD(ItemDto)
    RECORD_FIELD(QString, id)          // item
    RECORD_FIELD(QString, name)        // its name
    RECORD_FIELD(double, price)        // of one
    RECORD_FIELD(QString, typeId)      // unread: category
    RECORD_FIELD(QString, pic_path)    // image: a URL when it holds "http", else a path below kvupload
    RECORD_FIELD(int, server_type)     // orderType of its lines: 1, 3 goods 2 technician 5 package ticket
    RECORD_FIELD(int, is_desk_no)      // 1: saving the order asks for a desk number
    RECORD_FIELD(int, spec)            // unread
    RECORD_FIELD(long, tagId)          // above 0: the item has tastes to choose from
    RECORD_FIELD(int, sell_flg)        // 2: priced at the sale, always on a line of its own
    RECORD_FIELD(int, is_pack_ticket)  // 1: package ticket, left out of the catalogue
    RECORD_FIELD(QString, unit)        // unit
    RECORD_FIELD(QString, worker_type) // who earns the sale by work type, empty: the operator may book it
    RECORD_FIELD(int, times)           // unread beyond the catalogue's row
};
RECORD_LIST(ItemDto)

class ItemListDto : public QObject
{
    Q_OBJECT
    RECORD(ItemListDto)
    RECORD_FIELD(Array<ItemDto*>, itemList) // the items asked for
};

class GetItemList : public ApiRes
{
    Q_OBJECT
    RECORD_ON(GetItemList, ApiRes)
    RECORD_FIELD(ItemListDto*, data)
};
