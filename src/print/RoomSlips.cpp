#include "print/SlipPaper.h"
#include "print/SlipText.h"
#include "print/Slips.h"

using namespace SlipText;

void Slips::openRoom(SlipPaper& paper, const open_room_print_struct& record, const QString& storeName)
{
    constexpr int restRoom = 2;
    paper.beginInLineMode();
    paper.title(storeName);
    paper.tall(QStringLiteral("[开房单]"));
    paper.rule();
    paper.tall({QStringLiteral("房 间 号:") + record.roomNo,   //
                QStringLiteral("方案类型:") + record.planName, //
                QStringLiteral("主结手牌:") + record.mainCard, //
                QStringLiteral("开房时间:") + record.openTime, //
                QStringLiteral("预开时长:") + quantity(record.hours) + QStringLiteral("小时")});
    if (record.openType == restRoom)
        paper.tall(QStringLiteral("预计房费:") + amount(record.fee));
    paper.feed();
    paper.tall(QStringLiteral("宾客签名:"));
    paper.feed(4);
    paper.rule();
    paper.foot(record.staffCode, record.openTime);
    paper.end();
}

void Slips::leaveRoom(SlipPaper& paper, const leave_room_print_struct& record, const QString& storeName)
{
    constexpr int restRoom = 3;
    const bool isRestRoom = record.status == restRoom;
    paper.beginInLineMode();
    paper.title(storeName);
    paper.tall(QStringLiteral("[退房单]"));
    paper.rule();
    paper.tall(
        {QStringLiteral("房 间 号:") + record.roomNo + record.roomName,
         QStringLiteral("开房类型:") + (isRestRoom ? QStringLiteral("休息房") : QStringLiteral("按摩房"))});
    if (isRestRoom)
        paper.tall(QStringLiteral("方案类型:") + record.planName);
    paper.tall({QStringLiteral("开房时间:") + record.startTime, //
                QStringLiteral("退房时间:") + record.leaveTime, //
                QStringLiteral("开房时长:") + QString::number(record.hours) + QStringLiteral("小时"),
                QStringLiteral("已开时长:") + record.useTime, //
                QStringLiteral("开房手牌:") + record.cards});
    paper.rule();
    paper.foot(record.staffCode, printCurTime());
    paper.end();
}
