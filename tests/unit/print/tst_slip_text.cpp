#include "common/Clock.h"
#include "platform/LocalText.h"
#include "print/SlipText.h"

#include <QtTest>

using namespace SlipText;

class tst_slip_text : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void encodes_data();
    void encodes();
    void cuts_data();
    void cuts();
    void pads_data();
    void pads();
    void numbers();
    void currentTime();
};

void tst_slip_text::encodes_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<int>("lacking");
    QTest::newRow("empty") << QString() << QByteArray() << 0;
    QTest::newRow("Latin") << QStringLiteral("a~1") << QByteArray("a~1") << 0;
    QTest::newRow("Chinese") << QStringLiteral("手牌") << QByteArray("\xca\xd6\xc5\xc6") << 0;
    QTest::newRow("full-width yuan") << QStringLiteral("￥") << QByteArray("\xa3\xa4") << 0;
    QTest::newRow("half-width yuan") << QStringLiteral("¥1") << QByteArray("?1") << 1;
    QTest::newRow("euro, one byte elsewhere") << QStringLiteral("€中") << QByteArray("?\xd6\xd0") << 1;
    QTest::newRow("outside the plane") << QStringLiteral("茶😀𠮷1") << QByteArray("\xb2\xe8??1") << 2;
    QTest::newRow("half pairs") << QString(QChar(0xd83d)) + QLatin1Char('a') + QChar(0xde00)
                                << QByteArray("?a?") << 2;
}

void tst_slip_text::encodes()
{
    QFETCH(QString, text);
    QFETCH(QByteArray, bytes);
    QFETCH(int, lacking);
    int counted = 40;
    QCOMPARE(LocalText::encode(text, &counted), bytes);
    QCOMPARE(counted, 40 + lacking);
    QCOMPARE(getLength(text), bytes.size());
}

void tst_slip_text::cuts_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("start");
    QTest::addColumn<int>("length");
    QTest::addColumn<QString>("expected");
    QTest::newRow("empty") << QString() << 0 << 4 << QString();
    QTest::newRow("blank") << QStringLiteral("      ") << 0 << 4 << QString();
    QTest::newRow("shorter stays unpadded") << QStringLiteral("ab") << 0 << 4 << QStringLiteral("ab");
    QTest::newRow("exact") << QStringLiteral("手牌") << 0 << 4 << QStringLiteral("手牌");
    QTest::newRow("one more") << QStringLiteral("手牌1") << 0 << 4 << QStringLiteral("手牌");
    QTest::newRow("half a character") << QStringLiteral("手牌号") << 0 << 5 << QStringLiteral("手牌 ");
    QTest::newRow("a narrow one isn't taken behind it")
        << QStringLiteral("手牌a") << 0 << 3 << QStringLiteral("手 ");
    QTest::newRow("pair stays whole") << QStringLiteral("a😀😀") << 0 << 2 << QStringLiteral("a😀");
    QTest::newRow("start only counts in the test")
        << QStringLiteral("abcdef") << 2 << 4 << QStringLiteral("abcdef");
    QTest::newRow("start doesn't skip") << QStringLiteral("abcdefg") << 2 << 4 << QStringLiteral("abcd");
}

void tst_slip_text::cuts()
{
    QFETCH(QString, text);
    QFETCH(int, start);
    QFETCH(int, length);
    QTEST(subStringByByte(text, start, length), "expected");
}

void tst_slip_text::pads_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("width");
    QTest::addColumn<QString>("right");
    QTest::addColumn<QString>("left");
    QTest::addColumn<QString>("both");
    const auto row = [](const char* name, const char* text, int width, const char* right, const char* left,
                        const char* both) {
        QTest::newRow(name) << QString::fromUtf8(text) << width << QString::fromUtf8(right)
                            << QString::fromUtf8(left) << QString::fromUtf8(both);
    };
    row("shorter", "手1", 6, "手1---", "---手1", "-手1--");
    row("exact", "手牌", 4, "手牌", "手牌", "手牌");
    row("cut in a character", "手牌", 3, "手 ", "手 ", "手 ");
    row("empty", "", 3, "---", "---", "---");
    row("blank and too long", "     ", 3, "---", "---", "---");
    row("title", "123456789", 42, "123456789---------------------------------",
        "---------------------------------123456789", "----------------123456789-----------------");
}

void tst_slip_text::pads()
{
    QFETCH(QString, text);
    QFETCH(int, width);
    const QChar fill = QLatin1Char('-');
    QTEST(padRight(text, width, fill), "right");
    QTEST(padLeft(text, width, fill), "left");
    QTEST(padBoth(text, width, fill), "both");
}

void tst_slip_text::numbers()
{
    QCOMPARE(amount(-36), QStringLiteral("-36.00"));
    QCOMPARE(amount(0.1 + 0.2), QStringLiteral("0.30"));
    QCOMPARE(amount(12345678.9), QStringLiteral("12345678.90"));
    QCOMPARE(quantity(-2), QStringLiteral("-2"));
    QCOMPARE(quantity(2.5), QStringLiteral("2.5"));
    QCOMPARE(quantity(0.1 + 0.2), QStringLiteral("0.3"));
    QCOMPARE(quantityIn(QStringLiteral("数  量: %1"), 1.50), QStringLiteral("数  量: 1.5"));
    QCOMPARE(withoutLineBreaks(QStringLiteral("a\r\nb\nc d")), QStringLiteral("abc d"));
}

void tst_slip_text::currentTime()
{
    Clock::setSource([] { return QDateTime(QDate(2026, 3, 8), QTime(9, 5, 3)).toMSecsSinceEpoch(); });
    const QString now = printCurTime();
    Clock::setSource(nullptr);
    QCOMPARE(now, QStringLiteral("2026-03-08 09:05:03"));
}

QTEST_APPLESS_MAIN(tst_slip_text)
#include "tst_slip_text.moc"
