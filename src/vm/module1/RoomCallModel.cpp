#include "vm/module1/RoomCallModel.h"

RoomCallModel::RoomCallModel(QObject* parent)
    : RowModel({field("callId", &call_struct::id), field("callName", &call_struct::name),
                field("num", &call_struct::num)},
               parent)
{
}

void RoomCallModel::add(int index)
{
    changeAt(index, [](call_struct& service) { ++service.num; });
}

void RoomCallModel::sub(int index)
{
    changeAt(index, [](call_struct& service) { service.num = qMax(0, service.num - 1); });
}

void RoomCallModel::setNum(int index, int num)
{
    changeAt(index, [num](call_struct& service) { service.num = num; });
}
