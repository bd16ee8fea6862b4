#include "print/SlipPaper.h"
#include "print/SlipText.h"
#include "print/Slips.h"

using namespace SlipText;

namespace {

constexpr int halfLine = columns / 2;

void serviceItems(SlipPaper& paper, const QList<consumer_item_struct>& items)
{
    paper.feed();
    paper.line(QStringLiteral("---------------==项目明细==---------------"));
    double num = 0;
    double sum = 0;
    for (const consumer_item_struct& item : items) {
        paper.line(QStringLiteral("项  目: ") + item.itemName);
        paper.line(padRight(quantityIn(QStringLiteral("数  量: %1"), item.num), halfLine) +
                   padRight(QStringLiteral("类  别: 轮钟"), halfLine));
        paper.line(padRight(QStringLiteral("单  价: %1").arg(amount(item.price)), halfLine) +
                   padRight(QStringLiteral("金  额: %1").arg(amount(item.amount)), halfLine));
        paper.doubleRule();
        num += item.num;
        sum += item.amount;
    }
    paper.line(quantityIn(QStringLiteral("总数量: %1"), num));
    paper.line(QStringLiteral("总金额: %1").arg(amount(sum)));
    paper.rule();
}

/// How far a service was off its time, in minutes.
QString surplusMark(int surplus)
{
    if (surplus > 0)
        return QStringLiteral("<提前%1分钟>").arg(surplus);
    if (surplus < 0)
        return QStringLiteral("<超时%1分钟>").arg(-surplus);
    return QString();
}

void voucherItems(SlipPaper& paper, const end_server_print_struct& record)
{
    int num = 0;
    double sum = 0;
    for (const js_item_struct& item : record.items) {
        paper.tall(QStringLiteral("项目: %1<%2>").arg(item.itemName, item.assignType));
        paper.tall(QStringLiteral("数量: %1, 单价: %2, 金额: %3")
                       .arg(QString::number(item.num), amount(item.price), amount(item.amount)));
        num += item.num;
        sum += item.amount;
    }
    paper.tall(
        QStringLiteral("时间: %1-%2%3")
            .arg(record.items.first().startTime, record.items.last().endTime, surplusMark(record.surplus)));
    if (num > 0) {
        paper.line(QStringLiteral("------------------=合计=-------------------"));
        paper.tall(QStringLiteral("数量: %1, 金额: %2").arg(QString::number(num), amount(sum)));
    }
}

} // namespace

void Slips::serviceEnd(SlipPaper& paper, const js_server_print& record)
{
    paper.beginInLineMode();
    paper.title(QStringLiteral("结钟单"));
    paper.line(padRight(QStringLiteral("技师号: ") + record.staffNo, halfLine) +
               padLeft(QStringLiteral("手牌号: ") + record.cardNo, halfLine));
    paper.line(QStringLiteral("位置号: ") + record.seatNo);
    paper.line(QStringLiteral("起钟时间: ") + record.startTime);
    paper.line(QStringLiteral("应停时间: ") + record.dueTime);
    paper.line(QStringLiteral("实际时间: ") + record.realTime);
    paper.line(QStringLiteral("服务时长: ") + record.serviceTime);
    if (!record.items.isEmpty())
        serviceItems(paper, record.items);
    paper.foot(record.staffNo, printCurTime());
    paper.end();
}

void Slips::technicianEnd(SlipPaper& paper, const end_server_print_struct& record)
{
    paper.beginInLineMode();
    paper.tall(QStringLiteral("[%1][技师工作凭证]").arg(record.staffNo));
    paper.rule();
    paper.line(padRight(QStringLiteral("手牌: ") + record.cardNo, halfLine) +
               padLeft(QStringLiteral("房间: ") + record.roomNo, halfLine));
    paper.rule();
    if (!record.items.isEmpty())
        voucherItems(paper, record);
    paper.rule();
    paper.foot(record.workNo, printCurTime());
    paper.end();
}
