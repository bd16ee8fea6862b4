#include "print/SlipPaper.h"
#include "print/SlipText.h"
#include "print/Slips.h"

#include <QSet>

using namespace SlipText;

namespace {

constexpr int nameColumns = 22; ///< of a row's name, or of card number and name

void reportRow(SlipPaper& paper, const sell_sum_order_print_struct& order)
{
    if (order.isParent)
        paper.rule();
    QString name = withoutLineBreaks(order.name);
    if (getLength(name) > nameColumns) {
        paper.tall(name);
        name.clear();
    }
    paper.tall(padRight(name, nameColumns) + padLeft(quantity(order.num), 10) +
               padLeft(amount(order.amount), 10));
    if (order.isParent)
        paper.doubleRule();
}

void reportArea(SlipPaper& paper, const sell_sum_area_print_struct& area)
{
    paper.tall(area.areaName + QStringLiteral(" - <区域>"));
    paper.rule();
    for (const sell_sum_order_print_struct& order : area.orders)
        reportRow(paper, order);
    paper.rule();
    paper.tall(QStringLiteral("  == 合计 ==          ") + padLeft(quantity(area.totalNum), 10) +
               padLeft(amount(area.totalAmount), 10));
    paper.rule();
}

void transferRow(SlipPaper& paper, const transfer_order_struct& order)
{
    constexpr int itemColumns = 16;
    const QString card = padRight(order.cardNo, nameColumns - itemColumns);
    const QString name = withoutLineBreaks(order.itemName);
    QString start = card + name;
    if (getLength(name) > itemColumns) {
        paper.line(start);
        start.clear();
    }
    const QString sum = padLeft(amount(order.num * order.price), 8);
    paper.line(padRight(start, nameColumns) + padLeft(quantity(order.num), 4) + sum + sum);
}

} // namespace

void Slips::salesReport(SlipPaper& paper, const sell_sum_print_struct& record)
{
    paper.beginInLineMode();
    paper.title(QStringLiteral("区域统计报表"));
    paper.tall(QStringLiteral("开始时间: ") + record.startTime);
    paper.tall(QStringLiteral("结束时间: ") + record.endTime);
    for (const sell_sum_area_print_struct& area : record.areas)
        reportArea(paper, area);
    paper.foot(record.staffCode, printCurTime());
    paper.end();
}

void Slips::transfer(SlipPaper& paper, const transfer_print_struct& record, const QString& storeName)
{
    QSet<QString> cards;
    paper.begin();
    paper.title(storeName);
    paper.line(QStringLiteral("[转账凭证]"));
    paper.rule();
    paper.line(QStringLiteral("以下消费"));
    paper.rule();
    paper.line(QStringLiteral("手牌  项目名称        数量    金额    应收"));
    paper.rule();
    for (const transfer_order_struct& order : record.orders) {
        transferRow(paper, order);
        cards.insert(order.cardNo);
    }
    paper.rule();
    paper.line(
        QStringLiteral("转账金额: %1 (共%2位)").arg(amount(record.amount), QString::number(cards.size())));
    paper.rule();
    paper.line(QStringLiteral("由: [%1]结账").arg(record.newCardNo));
    paper.feed(2);
    paper.line(QStringLiteral("客户签名"));
    paper.feed(4);
    paper.line(padRight(QStringLiteral("收银:%1").arg(record.staffCode), 14) +
               QStringLiteral("转账时间:%1").arg(printCurTime()));
    paper.doubleRule();
    paper.end();
}
