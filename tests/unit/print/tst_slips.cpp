#include "RecordingLibrary.h"
#include "Samples.h"
#include "common/Clock.h"
#include "common/GlobalConfig.h"
#include "common/MyMessage.h"

#include <QSignalSpy>
#include <QtTest>

#include <functional>

namespace {

/// The way that a terminal is set up.
PrintSettings terminal(bool isIndent = true, int orderPrintNum = 1)
{
    PrintSettings settings;
    settings.isIndent = isIndent;
    settings.printerName = QStringLiteral("前台");
    settings.storeName = QString::fromUtf8(Samples::storeName);
    settings.orderPrintNum = orderPrintNum;
    settings.isOpenRoomPrint = true;
    return settings;
}

PrintSettings single(PrintSettings settings)
{
    settings.isSinglePrint = true;
    return settings;
}

PrintSettings named(PrintSettings settings, const char* storeName)
{
    settings.storeName = QString::fromUtf8(storeName);
    return settings;
}

QStringList golden(const QString& name)
{
    QFile file(QFINDTESTDATA(QStringLiteral("golden/%1.txt").arg(name)));
    if (!file.open(QIODevice::ReadOnly))
        return {QStringLiteral("no golden text ") + name};
    return QString::fromUtf8(file.readAll()).trimmed().split(QLatin1Char('\n'));
}

consumer_item_struct asTechnicians(consumer_item_struct item, int kind, const char* pushNo = "")
{
    item.isJs = 1;
    item.serviceType = kind;
    item.pushNo = QString::fromUtf8(pushNo);
    return item;
}

consumer_item_struct takenBack(consumer_item_struct item, const char* createTime, const char* authNo = "",
                               const char* authName = "")
{
    item.status = 3;
    item.createTime = QString::fromUtf8(createTime);
    item.authNo = QString::fromUtf8(authNo);
    item.authName = QString::fromUtf8(authName);
    return item;
}

/// Every kind of line, and every way in which a field can be too long.
consumer_print_struct manyLines()
{
    using Samples::item;
    consumer_print_struct record;
    record.area = QStringLiteral("水吧");
    record.orderDate = QStringLiteral("2026-03-08 21:04:12");
    record.cardNo = QStringLiteral("0168");
    record.roomNo = QStringLiteral("301");
    record.deskNo = QStringLiteral("A12");
    record.staffCode = QStringLiteral("1001");
    record.staffName = QStringLiteral("林晓梅梅梅");
    record.items = {
        item("二十列正好的项目名一", 1, 10, "8801选一"), // both touch what follows
        item("12345678901234567890X", 2, 10),            // loses its end
        asTechnicians(item("a一二三四五六七八九十", 3, 10, "8802"), 3),
        asTechnicians(item("一二三四五六七八九x十", 0.5, 10), 7, "9"), // a clock kind that nobody knows
        item("€果汁😀", 12345, 100),
        item("毛尖茶[赠送]", 1, 48),
        takenBack(item("啤酒", -2, 18), "2026-03-08 20:15:00"),
        takenBack(asTechnicians(item("足疗", -1, 128, "8803"), 5), "2026-03-08 20:30:00", "1000", "陈店长"),
    };
    return record;
}

consumer_print_struct roomOrder()
{
    consumer_print_struct record;
    record.orderMode = 2;
    record.area = QStringLiteral("按摩部");
    record.roomNo = QStringLiteral("301");
    record.remark = QStringLiteral("a一二三四五六七八九十一二三四五六七八九十终");
    return record;
}

consumer_print_struct threeItems()
{
    consumer_print_struct record;
    record.area = QStringLiteral("二楼休息大厅");
    record.items = {Samples::item("甲", 1, 1), Samples::item("乙", 2, 2), Samples::item("丙", 3, 3)};
    return record;
}

consumer_print_struct noItems()
{
    consumer_print_struct record;
    record.cardNo = QStringLiteral("0168");
    return record;
}

open_room_print_struct massageRoomOpened()
{
    open_room_print_struct record = Samples::openRoom();
    record.roomNo = QStringLiteral("301");
    record.openType = 1;
    record.planName = QStringLiteral("按摩房");
    record.mainCard.clear();
    record.hours = 1.5;
    record.staffCode = QStringLiteral("1000000012");
    return record;
}

leave_room_print_struct massageRoomLeft()
{
    leave_room_print_struct record = Samples::leaveRoom();
    record.roomNo = QStringLiteral("301");
    record.roomName.clear();
    record.status = 2;
    record.startTime = QStringLiteral("2026-03-08 20:05:30");
    record.hours = 2;
    record.useTime = QStringLiteral("1时0分");
    record.cards = QStringLiteral("0101,0102,0103,0104,0105,0106,0107");
    record.staffCode = QStringLiteral("1002");
    return record;
}

js_server_print serviceWithoutItems()
{
    js_server_print record;
    record.staffNo = QStringLiteral("8801");
    return record;
}

end_server_print_struct voucher(const QList<js_item_struct>& items, int surplus, const char* workNo = "8801")
{
    end_server_print_struct record = Samples::technicianEnd();
    record.items = items;
    record.surplus = surplus;
    record.workNo = QString::fromUtf8(workNo);
    return record;
}

sell_sum_print_struct longNames()
{
    sell_sum_area_print_struct area;
    area.areaName = QStringLiteral("水吧");
    area.totalNum = 1;
    area.totalAmount = -17;
    area.orders = {{QStringLiteral("一二三四五六七八九十"), -2, -20, false},
                   {QStringLiteral("一二三四五六七\n八九十a"), 1, 1, false},
                   {QStringLiteral("一二三四五六七八九十甲"), 1, 1, false},
                   {QStringLiteral("一二三四五六七八九十甲b"), 1, 1, false},
                   {QStringLiteral("=【一二三四五六七八九十】="), 1234567, 1234567, true}};
    sell_sum_print_struct record;
    record.areas = {area};
    return record;
}

transfer_print_struct transferNames()
{
    transfer_print_struct record;
    record.newCardNo = QStringLiteral("0171");
    record.amount = -27.5;
    record.orders = {{QStringLiteral("一二三四五六七八"), QStringLiteral("0168"), 1, 10},
                     {QStringLiteral("一二三四五六七八a"), QStringLiteral("0169"), 1, 20},
                     {QStringLiteral("1234567890123456"), QStringLiteral("0170009"), -2, 30},
                     {QStringLiteral("换\r\n行\n茶"), QStringLiteral("0168"), 0.5, 5}};
    return record;
}

} // namespace

Q_DECLARE_METATYPE(PrintSettings)

/// Every slip as calls to the library, against texts made by hand.
class tst_slips : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void prints_data();
    void prints();
    void printsNothing_data();
    void printsNothing();
    void refusesOtherRecords_data();
    void refusesOtherRecords();
    void withoutLibrary();
    void withoutPrinter();
    void networkPort();
    void linesOfCallers();
    void countsLackingCharacters();
};

void tst_slips::init()
{
    Clock::setSource(&Samples::printedAtMs);
    GlobalConfig::getInstance()->leave_room_print_count = 1;
    GlobalConfig::getInstance()->stop_server_print_count = 1;
}

void tst_slips::cleanup() { Clock::setSource(nullptr); }

void tst_slips::prints_data()
{
    QTest::addColumn<PrintSettings>("settings");
    QTest::addColumn<int>("kind");
    QTest::addColumn<QVariant>("record");
    QTest::addColumn<int>("configuredCopies");
    for (const Samples::Slip& slip : Samples::all())
        QTest::newRow(slip.name) << terminal() << slip.kind << slip.record << 1;

    const auto row = [](const char* name, const PrintSettings& settings, int kind, const auto& record,
                        int copies = 1) {
        QTest::newRow(name) << settings << kind << QVariant::fromValue(record) << copies;
    };
    row("order-lines", named(terminal(false), "云水间汤泉会馆云水间汤泉会馆云水间汤泉会馆店"), PrintOrder,
        manyLines());
    row("order-room", named(terminal(), "kv-house1"), PrintOrder, roomOrder());
    row("order-split", single(terminal(true, 2)), PrintOrder, threeItems());
    row("order-copies", terminal(false, 2), PrintOrder, noItems());
    row("open-room-massage", terminal(false), PrintOpenRoom, massageRoomOpened());
    row("leave-room-massage", terminal(false), PrintLeaveRoom, massageRoomLeft(), 2);
    row("service-end-empty", terminal(false), PrintServiceEnd, serviceWithoutItems());
    const QString start = QStringLiteral("19:30");
    row("technician-end-late", terminal(false), PrintTechnicianEnd,
        voucher(
            {{QStringLiteral("精油SPA"), QStringLiteral("点钟"), 398, 0, 0, start, QStringLiteral("20:00")}},
            -5, "8802"));
    row("technician-end-on-time", terminal(false), PrintTechnicianEnd,
        voucher({{QStringLiteral("%2"), QStringLiteral("轮钟"), 128, 1, 128, start, QStringLiteral("20:30")}},
                0));
    row("technician-end-empty", terminal(false), PrintTechnicianEnd, voucher({}, 5));
    row("sales-report-names", terminal(false), PrintSalesReport, longNames());
    row("transfer-names", terminal(false), PrintTransfer, transferNames());
}

void tst_slips::prints()
{
    QFETCH(PrintSettings, settings);
    QFETCH(int, kind);
    QFETCH(QVariant, record);
    QFETCH(int, configuredCopies);
    GlobalConfig::getInstance()->leave_room_print_count = configuredCopies;
    GlobalConfig::getInstance()->stop_server_print_count = configuredCopies;
    QSignalSpy messages(MyMessage::getInstance(), &MyMessage::showMessageSignal);

    RecordingLibrary library;
    PosPrint(library, true, settings).print(kind, record, {}, {});

    const QStringList expected = golden(QString::fromLatin1(QTest::currentDataTag()));
    const QStringList calls = library.calls();
    for (int i = 0; i < qMin(calls.size(), expected.size()); ++i)
        QVERIFY2(calls.at(i) == expected.at(i),
                 qPrintable(QStringLiteral("line %1\n  printed  %2\n  expected %3")
                                .arg(QString::number(i + 1), calls.at(i), expected.at(i))));
    QCOMPARE(calls.size(), expected.size());
    QCOMPARE(messages.count(), 0);
}

void tst_slips::printsNothing_data()
{
    QTest::addColumn<int>("kind");
    QTest::addColumn<QVariant>("record");
    QTest::addColumn<bool>("opens");
    const QVariant order = QVariant::fromValue(Samples::order());
    QTest::newRow("order without copies") << int(PrintOrder) << order << true;
    QTest::newRow("leave room without copies")
        << int(PrintLeaveRoom) << QVariant::fromValue(Samples::leaveRoom()) << true;
    QTest::newRow("service end without copies")
        << int(PrintServiceEnd) << QVariant::fromValue(Samples::serviceEnd()) << true;
    QTest::newRow("open room, not wanted")
        << int(PrintOpenRoom) << QVariant::fromValue(Samples::openRoom()) << false;
    QTest::newRow("open room, not wanted, other record") << int(PrintOpenRoom) << order << false;
    QTest::newRow("a kind that isn't") << 7 << order << true;
}

void tst_slips::printsNothing()
{
    QFETCH(int, kind);
    QFETCH(QVariant, record);
    QFETCH(bool, opens);
    GlobalConfig::getInstance()->leave_room_print_count = 0;
    GlobalConfig::getInstance()->stop_server_print_count = 0;
    PrintSettings settings = single(terminal(true, 0));
    settings.isOpenRoomPrint = false;
    QSignalSpy messages(MyMessage::getInstance(), &MyMessage::showMessageSignal);

    RecordingLibrary library;
    PosPrint(library, true, settings).print(kind, record, {}, {});
    QCOMPARE(library.calls(), opens
                                  ? QStringList({QStringLiteral("open \"前台\" 0x14"), QStringLiteral("close")})
                                  : QStringList());
    QCOMPARE(messages.count(), 0);
}

void tst_slips::refusesOtherRecords_data()
{
    QTest::addColumn<int>("kind");
    QTest::addColumn<QVariant>("record");
    for (const Samples::Slip& slip : Samples::all()) {
        const bool isOrder = slip.kind == PrintOrder || slip.kind == PrintOrderAgain;
        QTest::newRow(slip.name) << slip.kind
                                 << (isOrder ? QVariant::fromValue(Samples::buffet())
                                             : QVariant::fromValue(Samples::order()));
    }
    QTest::newRow("no record") << int(PrintBuffet) << QVariant();
    QTest::newRow("text") << int(PrintOrder) << QVariant(QStringLiteral("order"));
}

void tst_slips::refusesOtherRecords()
{
    QFETCH(int, kind);
    QFETCH(QVariant, record);
    GlobalConfig::getInstance()->leave_room_print_count = 3;
    QSignalSpy messages(MyMessage::getInstance(), &MyMessage::showMessageSignal);

    RecordingLibrary library;
    PosPrint(library, true, terminal(true, 2)).print(kind, record, {}, {});
    QCOMPARE(library.calls(), QStringList({QStringLiteral("open \"前台\" 0x14"), QStringLiteral("close")}));
    QCOMPARE(messages.count(), 1);
    QCOMPARE(messages.first(),
             QVariantList({QStringLiteral("打印失败【数据格式转换不正确】"), QStringLiteral("error")}));
}

void tst_slips::withoutLibrary()
{
    QSignalSpy messages(MyMessage::getInstance(), &MyMessage::showMessageSignal);
    PosPrintDLL missing; // a call would be one to a null pointer
    PosPrint(missing, false, terminal()).print(PrintBuffet, QVariant::fromValue(Samples::buffet()), {}, {});
    QCOMPARE(messages.count(), 0);
}

void tst_slips::withoutPrinter()
{
    QSignalSpy messages(MyMessage::getInstance(), &MyMessage::showMessageSignal);
    RecordingLibrary library;
    library.refuse();
    PrintSettings settings = terminal();
    settings.printerName.clear();
    PosPrint printer(library, true, settings);
    for (int slip = 0; slip < 2; ++slip)
        printer.print(PrintBuffet, QVariant::fromValue(Samples::buffet()), {}, {});
    QCOMPARE(library.calls(),
             QStringList({QStringLiteral("open \"\" 0x14"), QStringLiteral("open \"\" 0x14")}));
    // Behind whatever the caller says in the meantime.
    QCOMPARE(messages.count(), 0);
    QTRY_COMPARE(messages.count(), 2);
    QCOMPARE(messages.first(),
             QVariantList({QStringLiteral("打印失败,未正确连接打印机"), QStringLiteral("error")}));
}

void tst_slips::networkPort()
{
    RecordingLibrary library;
    PosPrint printer(library, true, terminal());
    QVERIFY(printer.openDevice(QStringLiteral("192.168.1.50"), QStringLiteral("9100")));
    QVERIFY(printer.openDevice(QStringLiteral("192.168.1.50"), QString()));
    library.refuse();
    QVERIFY(!printer.openDevice(QStringLiteral("192.168.1.50"), QStringLiteral("9100")));
    QCOMPARE(library.calls(),
             QStringList({QStringLiteral("open \"192.168.1.50\" 0x15"), QStringLiteral("reset"),
                          QStringLiteral("open \"前台\" 0x14"), QStringLiteral("open \"192.168.1.50\" 0x15")}));
}

void tst_slips::linesOfCallers()
{
    RecordingLibrary library;
    for (const bool isIndent : {true, false}) {
        PosPrint printer(library, true, terminal(isIndent));
        printer.posTextOut(QStringLiteral("一二三四五六七八九十一二三四五六七八九十a终尾"), 1, 2);
        printer.posTextOut(QString(), 1, 1);
        printer.cutPaper();
    }
    const QStringList narrow = {QStringLiteral("2|一二三四五六七八九十一二三四五六七八九十a |"),
                                QStringLiteral("1|                                          |"),
                                QStringLiteral("feed x7"), QStringLiteral("cut 0 10")};
    QStringList both = narrow;
    both[0].insert(2, QStringLiteral("   "));
    both[1].insert(2, QStringLiteral("   "));
    QCOMPARE(library.calls(), both + narrow);
}

void tst_slips::countsLackingCharacters()
{
    buffet_print_struct record = Samples::buffet();
    record.itemName = QStringLiteral("茶😀€");
    record.cardNo = QStringLiteral("1234567890123456789😀"); // the character is cut off and isn't counted
    RecordingLibrary library;
    PosPrint printer(library, true, terminal());
    for (int slip = 0; slip < 2; ++slip) {
        QTest::ignoreMessage(QtDebugMsg, "print 23 : 2 characters that the printer lacks, printed as ?");
        printer.print(PrintBuffet, QVariant::fromValue(record), {}, {});
    }
}

QTEST_GUILESS_MAIN(tst_slips)
#include "tst_slips.moc"
