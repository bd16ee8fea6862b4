#include "common/CallNames.h"

#include <QHash>

QString nameOfCall(const QString& path)
{
    static const QHash<QString, QString> names = {
        {QStringLiteral("/bba01/openMassRoom"), QStringLiteral("开按摩房")},
        {QStringLiteral("/bba01/openRestRoom"), QStringLiteral("开休息房")},
        {QStringLiteral("/bba01/chgOccupyRoom"), QStringLiteral("特殊占用")},
        {QStringLiteral("/bba01/chgCleanRoom"), QStringLiteral("清扫房")},
        {QStringLiteral("/bba01/setCleanRoom"), QStringLiteral("清扫房")},
        {QStringLiteral("/bba01/changeRoom"), QStringLiteral("更换房间")},
        {QStringLiteral("/bba01/massToRestRoom"), QStringLiteral("改休息房")},
        {QStringLiteral("/bba01/restToMassRoom"), QStringLiteral("改按摩房")},
        {QStringLiteral("/bba01/changeFeePlan"), QStringLiteral("更改方案")},
        {QStringLiteral("/bba01/restRoomAddTime"), QStringLiteral("房间加时")},
        {QStringLiteral("/bba01/roomAddCard"), QStringLiteral("新增手牌")},
        {QStringLiteral("/bba01/unpackRoom"), QStringLiteral("手牌拆房")},
        {QStringLiteral("/bba01/mergeRoom"), QStringLiteral("房间组团")},
        {QStringLiteral("/bba01/splitRoom"), QStringLiteral("取消团体")},
        {QStringLiteral("/bba01/leaveRoomNew"), QStringLiteral("离开房间")},
        {QStringLiteral("/bba01/cancelRoom"), QStringLiteral("取消开房")},
        {QStringLiteral("/bba01/setRemark"), QStringLiteral("备注信息")},
        {QStringLiteral("/bca01/batchUpdateOrder"), QStringLiteral("消费录入")},
        {QStringLiteral("/bca01/batchUpdateRoomOrder"), QStringLiteral("消费录入")},
    };
    return names.value(path);
}
