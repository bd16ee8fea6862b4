#include "print/SlipPaper.h"
#include "print/SlipText.h"
#include "print/Slips.h"

using namespace SlipText;

namespace {

/// Every column has its digit, every tenth its number above: what is missing at the right isn't printed.
QString tens()
{
    QString line;
    for (int ten = 10; ten <= columns; ten += 10)
        line += padLeft(QString::number(ten), 10);
    return line;
}

QString digits()
{
    QString line;
    for (int column = 1; column <= columns; ++column)
        line += QString::number(column % 10);
    return line;
}

} // namespace

void Slips::test(SlipPaper& paper, const QString& storeName)
{
    paper.beginInLineMode();
    paper.title(storeName);
    paper.line(QStringLiteral("[打印测试]"));
    paper.rule();
    paper.line(tens());
    paper.line(digits());
    paper.rule();
    paper.line(QStringLiteral("汉字占两列：足疗按摩休息消费手牌技师钟点房"));
    paper.line(QStringLiteral("字母与符号：ABCDEFGabcdefg 0123456789 ￥"));
    paper.tall(QStringLiteral("倍高：一二三四五六七八九十"));
    paper.rule();
    paper.line(QStringLiteral("本行下方应切纸"));
    paper.line(QStringLiteral("打印时间:%1").arg(printCurTime()));
    paper.doubleRule();
    paper.end();
}
