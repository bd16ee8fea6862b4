#pragma once

#include "dto/ApiRes.h"

/// One choice of a taste group.
class TasteSelDto : public QObject
{
    Q_OBJECT
    RECORD(TasteSelDto)
    RECORD_FIELD(QString, name) // its text
    RECORD_FIELD(QString, id)   // choice, sent in tagIds
};
RECORD_LIST(TasteSelDto)

/// One group of tastes of an item.
class TasteTagDto : public QObject
{
    Q_OBJECT
    RECORD(TasteTagDto)
    RECORD_FIELD(QString, name)             // title
    RECORD_FIELD(int, mulFlg)               // not 0: several choices together
    RECORD_FIELD(Array<TasteSelDto*>, sels) // the choices
    RECORD_FIELD(QString, id)               // unread: group
};
RECORD_LIST(TasteTagDto)

class TagListDto : public QObject
{
    Q_OBJECT
    RECORD(TagListDto)
    RECORD_FIELD(Array<TasteTagDto*>, tagList) // the groups of the item
};

class GetTagList : public ApiRes
{
    Q_OBJECT
    RECORD_ON(GetTagList, ApiRes)
    RECORD_FIELD(TagListDto*, data)
};
