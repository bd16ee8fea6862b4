// Every slip as calls to the library, against texts made by hand; the texts they are put together from, and the
// settings that steer them.

#include "RecordingLibrary.h"
#include "Samples.h"
#include "common/Clock.h"
#include "common/GlobalConfig.h"
#include "common/MyMessage.h"
#include "platform/LocalText.h"
#include "platform/Printers.h"
#include "print/InstalledPrinters.h"
#include "print/SlipText.h"
#include "support/Rows.h"
#include "support/StoredSetting.h"

#include <QDir>
#include <QSignalSpy>
#include <QTemporaryDir>

namespace {

const QStringList openedForNothing{"open \"前台\" 0x14", "close"};

QVariant buffet(const char* item = "自助晚餐", const char* card = "0168")
{
    return QVariant::fromValue(buffet_print_struct{"", card, item, 2, 88, "1001", ""});
}

using UnprintedRows = Rows<int, QVariant, int, QStringList, QString>;
using SettingRows = Rows<QString, QString, QString, bool, bool, bool>;

} // namespace

class tst_slips : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        m_folder.reset(new QTemporaryDir);
        QDir::setCurrent(m_folder->path());
        qputenv("KV_PANEL_PRINTERS", "前台=tcp://192.168.1.50");
        qunsetenv("KV_PANEL_PREVIEW_DIR");
        m_messages.clear();
    }
    void cleanup() { QDir::setCurrent(QDir::rootPath()); }

    void prints_data()
    {
        QTest::addColumn<int>("index");
        const QVector<SampleSlip> all = Samples::evening() + Samples::oddities();
        for (int i = 0; i < all.size(); ++i)
            QTest::newRow(all.at(i).name) << i;
    }
    void prints()
    {
        QFETCH(int, index);
        const SampleSlip slip = (Samples::evening() + Samples::oddities()).at(index);
        QFile golden(QString(KV_SOURCE_FOLDER "/tests/unit/print/golden/%1.txt").arg(slip.name));
        QVERIFY(golden.open(QIODevice::ReadOnly));
        const QStringList expected = QString::fromUtf8(golden.readAll()).trimmed().split('\n');

        const RecordingLibrary library;
        Samples::print(slip, library, "前台");
        for (int i = 0; i < qMin(library.calls.size(), expected.size()); ++i)
            QVERIFY2(library.calls.at(i) == expected.at(i),
                     qPrintable(QString("line %1\n  printed  %2\n  expected %3")
                                    .arg(QString::number(i + 1), library.calls.at(i), expected.at(i))));
        QCOMPARE(library.calls.size(), expected.size());
        QVERIFY(m_messages.isEmpty());
    }

    void printsNothing_data()
    {
        const QString refused = "打印失败【数据格式转换不正确】";
        const QVariant other = Samples::evening().first().record;
        std::vector<UnprintedRows::Row> rows = {
            {"open room, not wanted", PrintOpenRoom, Samples::evening().at(6).record, 0, {}, ""},
            {"a kind that isn't", 7, other, 1, openedForNothing, ""},
            {"no record", PrintBuffet, {}, 1, openedForNothing, refused},
            {"text", PrintOrder, "order", 1, openedForNothing, refused}};
        for (const SampleSlip& slip : Samples::evening()) {
            const bool isOrder = slip.kind == PrintOrder || slip.kind == PrintOrderAgain;
            rows.push_back({slip.name + QString(" of another record"), slip.kind, isOrder ? buffet() : other, 1,
                            openedForNothing, refused});
            if (slip.kind == PrintOrder || slip.kind == PrintLeaveRoom || slip.kind == PrintServiceEnd)
                rows.push_back(
                    {slip.name + QString(" without copies"), slip.kind, slip.record, 0, openedForNothing, ""});
        }
        UnprintedRows::add(rows);
    }
    void printsNothing()
    {
        const auto& [name, kind, record, copies, calls, message] = UnprintedRows::current();
        PrintSettings settings = Samples::terminal(true, copies);
        settings.isOpenRoomPrint = copies > 0;
        const RecordingLibrary library;
        Samples::print({"", kind, record, settings, copies}, library, "前台");
        QCOMPARE(library.calls, calls);
        QCOMPARE(m_messages.size(), message.isEmpty() ? 0 : 1);
        QCOMPARE(m_messages.value(0).value(0).toString(), message);
    }
    void withoutLibraryOrPrinter()
    {
        PosPrintDLL missing; // a call would be one to a null pointer
        PosPrint(missing, false, Samples::terminal()).print(PrintBuffet, buffet(), {}, {});
        // No library lies beside this test.
        QVERIFY(storeSetting("print", "前台"));
        QTest::ignoreMessage(QtDebugMsg, QRegularExpression("^POSDLL: ."));
        PosPrint::getInstance()->print(PrintBuffet, buffet(), {}, {});

        RecordingLibrary library;
        library.isRefusing = true;
        PrintSettings settings;
        settings.printerName = "吧台";
        PosPrint printer(library, true, settings);
        for (int slip = 0; slip < 2; ++slip)
            printer.print(PrintBuffet, buffet(), {}, {});
        QCOMPARE(library.calls, (QStringList{"open \"吧台\" 0x14", "open \"吧台\" 0x14"}));
        QCOMPARE(m_messages.size(), 0); // behind whatever the caller says in the meantime
        QTRY_COMPARE(m_messages.size(), 2);
        QCOMPARE(m_messages.first(), (QVariantList{"【自助餐单】打印失败,未正确连接打印机：吧台", "error"}));
        // The last one may be had again, once.
        library.isRefusing = false;
        MyMessage::getInstance()->reprint();
        MyMessage::getInstance()->reprint();
        QCOMPARE(library.calls.filter("open").size(), 3);
        QVERIFY(library.calls.contains("cut") || library.calls.size() > 4);
    }
    void networkPort()
    {
        RecordingLibrary library;
        PosPrint printer(library, true, Samples::terminal());
        QVERIFY(printer.openDevice("192.168.1.50", "9100") && printer.openDevice("192.168.1.50", ""));
        library.isRefusing = true;
        QVERIFY(!printer.openDevice("192.168.1.50", "9100"));
        QCOMPARE(library.calls, (QStringList{"open \"192.168.1.50\" 0x15", "reset", "open \"前台\" 0x14",
                                             "open \"192.168.1.50\" 0x15"}));
    }
    void countsLackingCharacters()
    {
        const RecordingLibrary library;
        PosPrint printer(library, true, Samples::terminal());
        for (int slip = 0; slip < 2; ++slip) {
            QTest::ignoreMessage(QtDebugMsg, "print 23 : 2 characters that the printer lacks, printed as ?");
            // The card's last character is cut off and isn't counted.
            printer.print(PrintBuffet, buffet("茶😀€", "1234567890123456789😀"), {}, {});
        }
    }

    void encodes()
    {
        const QString halfPairs = QString(QChar(0xd83d)) + 'a' + QChar(0xde00);
        for (const auto& [text, bytes, lacking] :
             Table<QString, QByteArray, int>{{"a~手牌", "a~\xca\xd6\xc5\xc6", 0},
                                             {"￥¥1", "\xa3\xa4?1", 1},    // the full-width yuan is there
                                             {"€中", "?\xd6\xd0", 1},      // is one byte elsewhere
                                             {"茶😀𠮷1", "\xb2\xe8??1", 2}, // outside the plane
                                             {halfPairs, "?a?", 2}}) {
            int counted = 40;
            QCOMPARE(LocalText::encode(text, &counted), bytes);
            QCOMPARE(counted, 40 + lacking);
            QCOMPARE(SlipText::getLength(text), bytes.size());
        }
    }
    void cutsAndPads()
    {
        // None is taken behind one that doesn't fit, and a pair stays whole.
        QCOMPARE(SlipText::subStringByByte("手牌a", 0, 3), QString("手 "));
        QCOMPARE(SlipText::subStringByByte("a😀😀", 0, 2), QString("a😀"));
        QCOMPARE(SlipText::subStringByByte("      ", 0, 4), QString());
        for (const auto& [text, width, right, left, both] :
             Table<QString, int, QString, QString, QString>{{"手1", 6, "手1---", "---手1", "-手1--"},
                                                            {"手牌", 3, "手 ", "手 ", "手 "},
                                                            {"     ", 3, "---", "---", "---"}}) {
            QCOMPARE(SlipText::padRight(text, width, '-'), right);
            QCOMPARE(SlipText::padLeft(text, width, '-'), left);
            QCOMPARE(SlipText::padBoth(text, width, '-'), both);
        }
    }
    void numbersAndTime()
    {
        QCOMPARE(SlipText::amount(0.1 + 0.2) + SlipText::amount(12345678.9), QString("0.3012345678.90"));
        QCOMPARE(SlipText::quantity(0.1 + 0.2) + SlipText::quantity(-2), QString("0.3-2"));
        Clock::setSource([] { return QDateTime(QDate(2026, 3, 8), QTime(9, 5, 3)).toMSecsSinceEpoch(); });
        QCOMPARE(SlipText::printCurTime(), QString("2026-03-08 09:05:03"));
        Clock::setSource(nullptr);
    }

    void settingsOfTheTable_data()
    {
        SettingRows::add({{"nothing set", "unrelated", "1", "", true, false, false},
                          {"narrow model", "print_mode", "1", "", false, false, false},
                          {"installed printer", "print", "前台", "前台", true, false, false},
                          {"printer that is gone", "print", "厨房", "", true, false, false},
                          {"a slip for each line", "is_single_print", "1", "", true, true, false},
                          {"not just any text", "is_single_print", "true", "", true, false, false},
                          {"slip at opening", "is_open_room_print", "1", "", true, false, true}});
    }
    void settingsOfTheTable()
    {
        const auto& [name, key, value, printerName, isIndent, isSinglePrint, isOpenRoomPrint] =
            SettingRows::current();
        QVERIFY(storeSetting(key, value));
        const PrintSettings settings = PrintSettings::ofTerminal();
        QCOMPARE(settings.printerName, printerName);
        QCOMPARE(settings.isIndent, isIndent);
        QCOMPARE(settings.isSinglePrint, isSinglePrint);
        QCOMPARE(settings.isOpenRoomPrint, isOpenRoomPrint);
    }
    void settingsOfTheSharedState()
    {
        QVERIFY(storeSetting("unrelated", "1"));
        QCOMPARE(PrintSettings::ofTerminal().orderPrintNum, 0); // no record yet
        GlobalConfig::getInstance()->setStoreName("云水间");
        QCOMPARE(PrintSettings::ofTerminal().storeName, QString("云水间"));
        auto* terminal = new TerminalDto;
        GlobalConfig::getInstance()->setTerminalInfo(terminal);
        for (const int copies : {3, -1}) {
            terminal->set_orderPrintNum(copies);
            QCOMPARE(PrintSettings::ofTerminal().orderPrintNum, qMax(copies, 0));
        }
    }
    void printers()
    {
        const QString preview = "预览打印机=preview:slips";
        for (const auto& [list, previewFolder, expected] : Table<QByteArray, QByteArray, QString>{
                 {"", "", preview},
                 {"", "/tmp/a=b", "预览打印机=preview:/tmp/a=b"},
                 {" 厨房 = tcp://10.0.0.9:9101 ;;前台=/dev/usb/lp0;", "",
                  "厨房=tcp://10.0.0.9:9101;前台=/dev/usb/lp0;" + preview},
                 {"厨房;前台=;=tcp://10.0.0.9", "", preview}, // incomplete ones
                 {"厨房=/dev/a;厨房=/dev/b;预览打印机=preview:/c", "/d",
                  "厨房=/dev/a;预览打印机=preview:/c"}}) {
            qputenv("KV_PANEL_PRINTERS", list);
            qputenv("KV_PANEL_PREVIEW_DIR", previewFolder);
            QStringList found, names;
            for (const OwnPrinter& printer : ownPrinters()) {
                found.append(printer.name + '=' + printer.target);
                names.append(printer.name);
            }
            QCOMPARE(found.join(';'), expected);
            const QStringList installed = installedPrinters();
            QCOMPARE(installed.mid(installed.size() - names.size()), names);
        }
    }

private:
    QScopedPointer<QTemporaryDir> m_folder;
    QSignalSpy m_messages{MyMessage::getInstance(), &MyMessage::showMessageSignal};
};

QTEST_GUILESS_MAIN(tst_slips)
#include "tst_slips.moc"
