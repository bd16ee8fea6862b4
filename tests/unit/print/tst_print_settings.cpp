#include "common/GlobalConfig.h"
#include "common/MyMessage.h"
#include "common/Sqlite.h"
#include "platform/Printers.h"
#include "print/InstalledPrinters.h"
#include "print/PosPrint.h"

#include <QDir>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QtTest>

namespace {

using Settings = QMap<QString, QString>;

void write(const Settings& settings)
{
    Sqlite table;
    QVERIFY(table.open());
    QVERIFY(table.createTable());
    for (auto it = settings.constBegin(); it != settings.constEnd(); ++it)
        table.addData(it.key(), it.value());
    table.close();
}

} // namespace

class tst_print_settings : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void fromTheTable_data();
    void fromTheTable();
    void fromTheSharedState();
    void ownPrinters_data();
    void ownPrinters();
    void installed();
    void terminalsPrinterWithoutLibrary();

private:
    const QString m_before = QDir::currentPath();
    QScopedPointer<QTemporaryDir> m_folder;
};

void tst_print_settings::init()
{
    m_folder.reset(new QTemporaryDir);
    QDir::setCurrent(m_folder->path());
    qputenv("KV_PANEL_PRINTERS", QByteArrayLiteral("前台=tcp://192.168.1.50"));
    qunsetenv("KV_PANEL_PREVIEW_DIR");
}

void tst_print_settings::cleanup()
{
    QDir::setCurrent(m_before);
    qunsetenv("KV_PANEL_PRINTERS");
}

void tst_print_settings::fromTheTable_data()
{
    QTest::addColumn<QString>("key");
    QTest::addColumn<QString>("value");
    QTest::addColumn<bool>("isIndent");
    QTest::addColumn<QString>("printerName");
    QTest::addColumn<bool>("isSinglePrint");
    QTest::addColumn<bool>("isOpenRoomPrint");
    const auto row = [](const char* name, const char* key, const char* value, bool isIndent,
                        const char* printerName = "", bool isSinglePrint = false,
                        bool isOpenRoomPrint = false) {
        QTest::newRow(name) << QString::fromLatin1(key) << QString::fromUtf8(value) << isIndent
                            << QString::fromUtf8(printerName) << isSinglePrint << isOpenRoomPrint;
    };
    row("nothing set", "unrelated", "1", true);
    row("narrow model", "print_mode", "1", false);
    row("wide model", "print_mode", "0", true);
    row("no such model", "print_mode", "2", true);
    row("installed printer", "print", "前台", true, "前台");
    row("preview printer", "print", "预览打印机", true, "预览打印机");
    row("printer that is gone", "print", "厨房", true);
    row("a slip for each line", "is_single_print", "1", true, "", true);
    row("not just any text", "is_single_print", "true", true);
    row("slip at opening", "is_open_room_print", "1", true, "", false, true);
    row("switched off", "is_open_room_print", "", true);
}

void tst_print_settings::fromTheTable()
{
    QFETCH(QString, key);
    QFETCH(QString, value);
    write({{key, value}});
    const PrintSettings settings = PrintSettings::ofTerminal();
    QTEST(settings.isIndent, "isIndent");
    QTEST(settings.printerName, "printerName");
    QTEST(settings.isSinglePrint, "isSinglePrint");
    QTEST(settings.isOpenRoomPrint, "isOpenRoomPrint");
}

void tst_print_settings::fromTheSharedState()
{
    write({});
    GlobalConfig* config = GlobalConfig::getInstance();
    QCOMPARE(PrintSettings::ofTerminal().orderPrintNum, 0); // no record yet

    config->setStoreName(QStringLiteral("云水间"));
    for (const int copies : {3, 0, -1}) {
        auto* terminal = new TerminalDto;
        terminal->set_orderPrintNum(copies);
        config->setTerminalInfo(terminal);
        QCOMPARE(PrintSettings::ofTerminal().orderPrintNum, qMax(copies, 0));
    }
    QCOMPARE(PrintSettings::ofTerminal().storeName, QStringLiteral("云水间"));
    config->setTerminalInfo(nullptr);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

void tst_print_settings::ownPrinters_data()
{
    QTest::addColumn<QByteArray>("list");
    QTest::addColumn<QByteArray>("previewFolder");
    QTest::addColumn<QStringList>("expected");
    const QString preview = QStringLiteral("预览打印机=preview:slips");
    QTest::newRow("none") << QByteArray() << QByteArray() << QStringList(preview);
    QTest::newRow("folder") << QByteArray() << QByteArray("/tmp/a=b")
                            << QStringList(QStringLiteral("预览打印机=preview:/tmp/a=b"));
    QTest::newRow("two, loosely written")
        << QByteArray(" 厨房 = tcp://10.0.0.9:9101 ;;前台=/dev/usb/lp0;") << QByteArray()
        << QStringList(
               {QStringLiteral("厨房=tcp://10.0.0.9:9101"), QStringLiteral("前台=/dev/usb/lp0"), preview});
    QTest::newRow("incomplete") << QByteArray("厨房;前台=;=tcp://10.0.0.9") << QByteArray()
                                << QStringList(preview);
    QTest::newRow("twice") << QByteArray("厨房=/dev/a;厨房=/dev/b;预览打印机=preview:/c") << QByteArray("/d")
                           << QStringList(
                                  {QStringLiteral("厨房=/dev/a"), QStringLiteral("预览打印机=preview:/c")});
}

void tst_print_settings::ownPrinters()
{
    QFETCH(QByteArray, list);
    QFETCH(QByteArray, previewFolder);
    qputenv("KV_PANEL_PRINTERS", list);
    qputenv("KV_PANEL_PREVIEW_DIR", previewFolder);
    QStringList printers;
    for (const OwnPrinter& printer : ::ownPrinters())
        printers.append(printer.name + QLatin1Char('=') + printer.target);
    QTEST(printers, "expected");
}

void tst_print_settings::installed()
{
    const QStringList names = installedPrinters();
    QCOMPARE(names.mid(names.size() - 2), QStringList({QStringLiteral("前台"), QStringLiteral("预览打印机")}));
    QVERIFY(!names.contains(QString()));
}

/// No library lies beside this test.
void tst_print_settings::terminalsPrinterWithoutLibrary()
{
    write({{QStringLiteral("print"), QStringLiteral("前台")}});
    QSignalSpy messages(MyMessage::getInstance(), &MyMessage::showMessageSignal);
    QTest::ignoreMessage(QtDebugMsg, QRegularExpression(QStringLiteral("^POSDLL: .")));
    PosPrint* printer = PosPrint::getInstance();
    QCOMPARE(PosPrint::getInstance(), printer);
    printer->print(PrintBuffet, QVariant::fromValue(buffet_print_struct()), {}, {});
    QCOMPARE(messages.count(), 0);
}

QTEST_GUILESS_MAIN(tst_print_settings)
#include "tst_print_settings.moc"
