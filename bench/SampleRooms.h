#pragma once

#include <QJsonObject>

/// A room as the back end sends it, every field filled.
inline QJsonObject sampleRoom(int number)
{
    const QString code = QString::number(800 + number);
    return {{"id", QString::number(405757793603424257LL + number)},
            {"code", code},
            {"name", code},
            {"floorname", QStringLiteral("三楼")},
            {"typename", QStringLiteral("豪华双人房")},
            {"status", number % 5 + 1},
            {"statusStr", QStringLiteral("按摩房")},
            {"openType", number % 3},
            {"cardnos", QStringLiteral("1023,1024")},
            {"staffnos", QStringLiteral("88,16")},
            {"completedStaffnos", QStringLiteral("12")},
            {"cooName", ""},
            {"hours", 2},
            {"surplus", number - 500},
            {"start_time", QStringLiteral("2026-11-22 19:30:00")},
            {"last_time", QStringLiteral("2026-11-22 21:30:00")},
            {"lastSvrTime", QStringLiteral("全身推拿 21:05")},
            {"group_key", ""},
            {"groupRoom", QStringLiteral("801,802")},
            {"isStaffOrder", number % 2 == 0},
            {"callCount", 0},
            {"needPayAmount", 298.5 + number},
            {"isSettle", false},
            {"roomLock", number % 7 == 0},
            {"remark", QStringLiteral("客人要热水")},
            {"cleanerNo", "201"},
            {"cleanerName", QStringLiteral("王秀英")},
            {"cleanFlg", 0},
            {"dirtyFlg", false},
            {"todayLeave", false},
            {"groupDepositAmt", 0.5},
            {"groupPayAmt", 12.25},
            {"srcAlias", ""},
            {"innum", 1},
            {"num", 2}};
}
