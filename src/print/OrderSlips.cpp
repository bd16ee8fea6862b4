#include "print/SlipPaper.h"
#include "print/SlipText.h"
#include "print/Slips.h"

using namespace SlipText;

namespace {

/// How a technician came to a service, by clock kind from 1 on.
const char* const clockWords[] = {"点钟", "选钟", "call钟", "捡钟", "轮钟", "加钟"};

QString clockWord(int kind)
{
    const bool isKnown = kind >= 1 && kind <= int(std::size(clockWords));
    return isKnown ? QString::fromUtf8(clockWords[kind - 1]) : QString();
}

/// Who printed, in 18 columns.
QString printedBy(const QString& code, const QString& name)
{
    const QString text =
        QStringLiteral("打印:") + code + QLatin1Char('-') + name + QString(16, QLatin1Char(' '));
    return padLeft(subStringByByte(text, 0, 18), 18);
}

void columnHead(SlipPaper& paper)
{
    paper.rule();
    paper.tall(QStringLiteral("项目名称           工号     数量      金额"));
    paper.rule();
}

QString itemRow(const QString& name, const QString& staff, const QString& num, const QString& amount)
{
    return padRight(name, 20) + padRight(staff, 8) + padLeft(num, 4) + padLeft(amount, 10);
}

void totals(SlipPaper& paper, const QString& num, const QString& amount)
{
    paper.rule();
    paper.tall(QStringLiteral("  --   合      计       ") + padLeft(num, 8) + padLeft(amount, 10));
    paper.rule();
}

void item(SlipPaper& paper, const consumer_item_struct& item)
{
    paper.tall(itemRow(item.itemName, item.staffNo, quantity(item.num), amount(item.amount)));
    if (item.isJs == 1) {
        QString kind = QStringLiteral("类型:") + clockWord(item.serviceType);
        if (!item.pushNo.isEmpty())
            kind += QStringLiteral(" , 推钟人:") + item.pushNo;
        paper.tall(kind);
        paper.doubleRule();
    }
    if (item.status == 3) {
        paper.line(QStringLiteral("原时间: ") + item.createTime);
        if (!item.authNo.isEmpty())
            paper.line(QStringLiteral("授权人:") + item.authNo + QLatin1Char('_') + item.authName);
        paper.doubleRule();
    }
}

void items(SlipPaper& paper, const QList<consumer_item_struct>& rows)
{
    double num = 0;
    double sum = 0;
    for (const consumer_item_struct& row : rows) {
        item(paper, row);
        num += row.num;
        sum += row.amount;
    }
    totals(paper, quantity(num), amount(sum));
}

void place(SlipPaper& paper, const consumer_print_struct& record)
{
    QString text;
    if (!record.deskNo.isEmpty())
        text += padRight(QStringLiteral("桌号:") + record.deskNo, columns / 2);
    if (!record.roomNo.isEmpty())
        text += padRight(QStringLiteral("房号:") + record.roomNo, columns / 2);
    if (!text.isEmpty())
        paper.tall(text);
}

void remark(SlipPaper& paper, const QString& text)
{
    if (text.isEmpty())
        return;
    paper.line(QStringLiteral("---------------==整单备注==---------------"));
    const int lines = (getLength(text) + columns - 1) / columns;
    QString rest = padRight(text, lines * columns);
    for (int i = 0; i < lines; ++i) {
        paper.line(subStringByByte(rest, 0, columns));
        rest.remove(0, fittingLength(rest, columns));
    }
    paper.rule();
}

} // namespace

void Slips::order(SlipPaper& paper, const consumer_print_struct& record, const QString& storeName, int number,
                  bool isReprint)
{
    paper.begin();
    paper.title(storeName);
    const QString mark = isReprint ? QStringLiteral(" - <重印>") : QString();
    paper.tall(padRight(record.area + mark + QStringLiteral("【%1】").arg(number), columns));
    paper.rule();
    paper.tall(QStringLiteral("日  期:") + record.orderDate);
    const QString label = record.orderMode == 2 ? QStringLiteral("房间号:") : QStringLiteral("手牌号:");
    const QString& guest = record.cardNo.isEmpty() ? record.roomNo : record.cardNo;
    paper.tall(label + padRight(guest, 17) + printedBy(record.staffCode, record.staffName));
    columnHead(paper);
    items(paper, record.items);
    place(paper, record);
    remark(paper, record.remark);
    paper.tall(QStringLiteral("客人签名"));
    paper.end();
}

void Slips::buffet(SlipPaper& paper, const buffet_print_struct& record, const QString& storeName)
{
    const QString num = QString::number(record.num);
    const QString sum = amount(record.num * record.price);

    paper.begin();
    paper.title(storeName);
    paper.tall(QStringLiteral("<自助餐消费>"));
    paper.rule();
    paper.tall(QStringLiteral("日  期:") + record.orderDate);
    paper.tall(QStringLiteral("手牌号:") + padRight(record.cardNo, 17) +
               printedBy(record.staffCode, record.staffName));
    columnHead(paper);
    paper.tall(itemRow(record.itemName, record.staffCode, num, sum));
    totals(paper, num, sum);
    paper.tall(QStringLiteral("客人签名"));
    paper.feed(3);
    paper.end();
}
