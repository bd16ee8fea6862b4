// The settings' page: what it shows of what is stored, what it writes, and its tests of printer, voice,
// readers.

#include "RoomFixture.h"
#include "support/ChildProcess.h"

#include "app/MainClass.h"
#include "app/SysInit.h"
#include "common/GlobalConfig.h"
#include "common/Settings.h"
#include "common/Sqlite.h"
#include "platform/SpeechEngine.h"
#include "vm/module5/ChecksVm.h"
#include "vm/module5/Module5Register.h"

#include <QRandomGenerator>
#include <QSqlQuery>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

const QStringList pageKeys{"print",
                           "print_mode",
                           "staff_device_com",
                           "is_single_print",
                           "is_open_room_print",
                           "is_use_tts",
                           "tts_language",
                           "tts_voice",
                           "tts_speed",
                           "cons_item_count",
                           "js_item_count",
                           "room_item_count",
                           "stop_server_print_count",
                           "leave_room_print_count",
                           "js_assign_type",
                           "hand_card_device",
                           "hand_card_com",
                           "is_rfid_8",
                           "zy_tts_text",
                           "call_count",
                           "is_small_img_mode"};

/// "key=value key=value" and nothing else is stored; "~" in keys is an underscore, "_" in values a blank.
bool store(const QString& pairs)
{
    QHash<QString, QString> wanted;
    for (const QString& pair : pairs.split(' ', Qt::SkipEmptyParts))
        wanted.insert(pair.section('=', 0, 0).replace('~', '_'), pair.section('=', 1).replace('_', ' '));
    Settings::Values values;
    for (const QString& key : pageKeys)
        values.push_back({key, wanted.value(key)});
    QString failed;
    return Settings::writeAll(values, failed);
}

Settings::Values numbered(int number)
{
    Settings::Values values;
    for (const QString& key : pageKeys)
        values.push_back({key, QString::number(number)});
    return values;
}

/// Saves one set after the other until it is killed.
int writeForEver()
{
    QString failed;
    for (int number = 0; Settings::writeAll(numbered(number), failed); ++number) {
        if (number == 1 && ::write(STDOUT_FILENO, "\n", 1) != 1)
            return 1;
    }
    return 1;
}

} // namespace

class tst_settings_page_vm : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void page_data();
    void page();
    void unsavedAndWaiting();
    void writesAllOrNothing();
    void killedWhileSaving();
    void printTest();
    void voiceTest();
    void readers();
    void linesAndDiagnosis();

private:
    QString checked(const QString& look) { return m_terminal->run(look).toString(); }
    ChecksVm* checks() { return static_cast<ChecksVm*>(m_terminal->page("ChecksVm")); }

    std::unique_ptr<RoomFixture> m_terminal;
};

void tst_settings_page_vm::initTestCase()
{
    qputenv("KV_PANEL_COM1", "/dev/null");
    m_terminal.reset(new RoomFixture);
    QVERIFY(m_terminal->isUp());
    Module5Register().init();
}

void tst_settings_page_vm::init()
{
    m_terminal->reset();
    QVERIFY(store({}));
    auto* cards = new CardConfigDto;
    cards->set_lock_type(4);
    GlobalConfig::getInstance()->setCardConfig(cards);
}

void tst_settings_page_vm::page_data()
{
    // what is stored | what is done | what to look at | what it says | what is shown | what is stored then
    addRows(R"T(
none | | [p.printIndex, p.printModeIndex, p.comIndex, p.handIndex, p.handComIndex, p.isSmallImgMode, p.speed, p.isUseTts, p.jsAssIndex] | 0,0,-1,0,-1,false,0,false,0 | |
none | | [p.consItemCount, p.jsItemCount, p.roomItemCount, p.stopServerCount, p.leaveRoomCount, p.callCount, p.zytts, p.langIndex, p.voiceIndex] | 8,8,8,0,0,1,请%1号贵宾前往助浴区,-1,0 | |
print=前台 print~mode=1 staff~device~com=COM3 hand~card~device=1 hand~card~com=COM8 | | [p.printIndex, p.printModeIndex, p.comIndex, p.handIndex, p.handComIndex] | 1,1,2,1,7 | |
print=gone staff~device~com=COM12 | | [p.printIndex, p.comList[p.comIndex], p.isPortThere('COM12'), p.isPortThere('COM1')] | -1,COM12,false,true | |
cons~item~count=5 js~item~count=6 room~item~count=7 stop~server~print~count=3 js~assign~type=5 | | [p.consItemCount, p.jsItemCount, p.roomItemCount, p.stopServerCount, p.jsAssIndex] | 8,6,8,3,1 | |
is~use~tts=1 tts~language=简体中文_(中国) tts~voice=Mei tts~speed=-10 zy~tts~text=到%1 call~count=3 | | [p.langList, p.langIndex, p.voiceList, p.voiceIndex, p.speed, p.zytts, p.callCount] | American English (United States),简体中文 (中国),1,Ting,Mei,1,-10,到%1,3 | |
is~use~tts=1 tts~voice=Mei | p.langIndex = 1 | [p.voiceList, p.voiceIndex] | Ting,Mei,0 | |
zy~tts~text=到%1 call~count=3 tts~language=x tts~speed=4 | | [p.zytts, p.callCount, p.langList, p.speed] | 请%1号贵宾前往助浴区,1,,4 | |
none | p.enterNumber('speed', '100') | p.speed | 100 | |
none | p.enterNumber('speed', '101') | p.speed | -1 | |
none | p.enterNumber('speed', '110') | p.speed | -10 | |
none | p.enterNumber('speed', '') | p.speed | 0 | |
none | p.enterNumber('stopServerCount', '12'); p.enterNumber('leaveRoomCount', '.') | [p.stopServerCount, p.leaveRoomCount] | 12,0 | |
none | p.enterNumber('consItemCount', '5'); p.enterNumber('jsItemCount', '6'); p.enterNumber('roomItemCount', '6') | [p.consItemCount, p.jsItemCount, p.roomItemCount] | 8,6,6 | error|列数不能<6 |
none | p.enterNumber('callCount', '3'); p.enterNumber('callCount', '4') | p.callCount | 3 | error|播报次数不能大于3 |
is~use~tts=1 room~item~count=9 | p.enterNumber('roomItemCount', '6'); p.save() | p.roomItemCount | 6 | success|参数保存成功 | room~item~count=6 zy~tts~text=请%1号贵宾前往助浴区
is~use~tts=1 print=前台 | p.printIndex = 0; p.comIndex = 2; p.isRfid8 = true; p.jsAssIndex = 2; p.handIndex = 1; p.isSmallImgMode = true; p.save() | p.isChanged | false | success|参数保存成功 | print= staff~device~com=COM3 is~rfid~8=1 js~assign~type=2 hand~card~device=1 hand~card~com= is~small~img~mode=1 print~mode=0
is~use~tts=1 tts~language=简体中文_(中国) tts~voice=Ting | p.voiceIndex = 1; p.speed = -1; p.save() | p.voiceIndex | 1 | success|参数保存成功 | tts~voice=Mei tts~language=简体中文_(中国) tts~speed=-1 is~use~tts=1
is~use~tts=1 zy~tts~text=到%1 | p.zytts = '到前台'; p.save() | p.zytts | | success|参数保存成功 | zy~tts~text=
tts~language=x tts~voice=y hand~card~com=COM9 | p.save() | p.isChanged | false | success|参数保存成功 | tts~language=x tts~voice=y hand~card~com=COM9 call~count=1
zy~tts~text=到%1 call~count=2 | p.save() | p.isChanged | false | question|提示|语音未启用，原来的助浴TTS内容和播报次数没有读出：\n【到%1】 2次\n保存会用页面上的覆盖它们，确定吗？; success|参数保存成功 | zy~tts~text=请%1号贵宾前往助浴区 call~count=1
zy~tts~text=到%1 call~count=2 | f.answerQuestions(0); p.isUseTts = true; p.save() | p.isChanged | true | question|提示|语音未启用，原来的助浴TTS内容和播报次数没有读出：\n【到%1】 2次\n保存会用页面上的覆盖它们，确定吗？ | zy~tts~text=到%1 call~count=2 is~use~tts=
)T");
}

void tst_settings_page_vm::page()
{
    QFETCH(QStringList, cells);
    QVERIFY(store(cells.at(0)));
    const std::unique_ptr<QObject> page(m_terminal->page("Module5Vm", cells.at(1)));
    QCOMPARE(checked(cells.at(2)), cells.at(3));
    QCOMPARE(m_terminal->takeShown().join("; ").replace("\n", "\\n"), cells.at(4));
    for (const QString& pair : cells.value(5).split(' ', Qt::SkipEmptyParts))
        QCOMPARE(Settings::read(pair.section('=', 0, 0).replace('~', '_')),
                 pair.section('=', 1).replace('_', ' '));
}

/// Changing back leaves nothing to save; what is saved waits for the next start, unless it is what runs.
void tst_settings_page_vm::unsavedAndWaiting()
{
    QVERIFY(store("is~use~tts=1"));
    const std::unique_ptr<QObject> page(m_terminal->page("Module5Vm"));
    const QString state = "[p.isChanged, p.needsRestart, p.marks.tts_speed, p.marks.is_small_img_mode]";
    QVERIFY(m_terminal->run("p.save()").toBool());
    const QString before = checked("p.needsRestart");
    for (const auto& [step, expected] : {std::pair{"p.speed = 7", "true,%1,changed,"},
                                         {"p.speed = 0", "false,%1,,"},
                                         {"p.isSmallImgMode = !p.isSmallImgMode", "true,%1,,changed"},
                                         {"p.save()", "false,%1,,"},
                                         {"p.speed = 7; p.save()", "false,true,restart,"},
                                         {"p.speed = 0; p.save()", "false,%1,,"}}) {
        m_terminal->run(step);
        QCOMPARE(checked(state), QString(expected).contains("%1") ? QString(expected).arg(before) : expected);
    }
}

void tst_settings_page_vm::writesAllOrNothing()
{
    QVERIFY(store("is~use~tts=1 print=前台 staff~device~com=COM2"));
    const std::unique_ptr<QObject> page(m_terminal->page("Module5Vm", "p.comIndex = 4; p.speed = 5"));
    for (const auto& [key, refusal] : {std::pair{"print", "保存打印机参数失败"},
                                       {"print_mode", "保存打印机参数失败"},
                                       {"staff_device_com", "保存读卡器参数失败"},
                                       {"is_small_img_mode", "参数保存失败"}}) {
        Sqlite table;
        QVERIFY(table.open());
        QSqlQuery(QString("CREATE TRIGGER stop BEFORE INSERT ON sys_config WHEN NEW.code = '%1' "
                          "BEGIN SELECT RAISE(ABORT, 'full'); END")
                      .arg(key),
                  QSqlDatabase::database());
        table.close();
        QCOMPARE(checked("p.save()"), QString("false"));
        QCOMPARE(m_terminal->takeShown().last(), QString("error|%1").arg(refusal));
        QCOMPARE(Settings::read("staff_device_com"), QString("COM2"));
        QCOMPARE(Settings::read("print"), QString("前台"));
        QVERIFY(page->property("isChanged").toBool());
        QVERIFY(table.open());
        QSqlQuery("DROP TRIGGER stop", QSqlDatabase::database());
        table.close();
    }
}

void tst_settings_page_vm::killedWhileSaving()
{
    QString failed;
    QVERIFY(Settings::writeAll(numbered(0), failed));
    int highest = 0;
    for (int kill = 0; kill < 200; ++kill) {
        ChildProcess writer;
        writer.start(QCoreApplication::applicationFilePath(), {"write"});
        QVERIFY(writer.waitForReadyRead(10000));
        QTest::qSleep(QRandomGenerator::global()->bounded(1, 7));
        writer.kill();
        QVERIFY(writer.waitForFinished());
        const QString number = Settings::read(pageKeys.first());
        highest = qMax(highest, number.toInt());
        for (const QString& key : pageKeys)
            QCOMPARE(key + "=" + Settings::read(key), key + "=" + number);
    }
    QVERIFY(highest > 1);
    QCOMPARE(m_terminal->takeShown(), QStringList());
}

void tst_settings_page_vm::printTest()
{
    const QByteArray deaf = m_terminal->filePath("deaf").toUtf8();
    const QByteArray unread = m_terminal->filePath("unread").toUtf8();
    QVERIFY(::mkfifo(deaf.constData(), 0600) == 0 && ::mkfifo(unread.constData(), 0600) == 0);
    const int full = ::open(deaf.constData(), O_RDWR | O_NONBLOCK);
    const std::vector<char> page4k(4096, 'x');
    while (::write(full, page4k.data(), page4k.size()) > 0) {
    }
    const QByteArray before = qgetenv("KV_PANEL_PRINTERS");
    qputenv("KV_PANEL_PRINTERS",
            "拒绝=tcp://127.0.0.1:1;超时=" + deaf + ";断开=" + unread + ";没有=/no/such/device");
    qputenv("KV_PANEL_PREVIEW_DIR", m_terminal->filePath("slips").toUtf8());
    const std::unique_ptr<QObject> page(m_terminal->page("Module5Vm"));
    const std::unique_ptr<ChecksVm> checks(this->checks());
    auto* settings = static_cast<Module5Vm*>(page.get());
    const auto tried = [&](const QString& printer) {
        settings->setPrintIndex(settings->pPrintModel()->indexOf(printer));
        checks->printTest(settings);
        return checks->printResult();
    };
    QCOMPARE(tried("拒绝"), QString("打印机拒绝，可能被占用或无权限"));
    QCOMPARE(tried("超时"), QString("打印机没有回应，等待超时"));
    QCOMPARE(tried("断开"), QString("连不上打印机，请查电源和网线"));
    QCOMPARE(tried("没有"), QString("没有这台打印机"));
    QCOMPARE(tried(""), QString("没有选择打印机"));
    QVERIFY(!checks->isPrintGood());
    settings->setPrintModeIndex(1);
    QCOMPARE(tried("预览打印机"), QString("已打印，请看测试单"));
    QFile slip(m_terminal->filePath("slips/slip-0001.txt"));
    QVERIFY(slip.open(QIODevice::ReadOnly));
    const QStringList lines = QString::fromUtf8(slip.readAll()).split('\n');
    QVERIFY(lines.contains("123456789012345678901234567890123456789012"));
    QVERIFY(lines.contains("[cut]") && lines.join("").contains("足疗按摩"));
    qputenv("KV_PANEL_PRINTERS", before);
    qunsetenv("KV_PANEL_PREVIEW_DIR");
    ::close(full);
}

void tst_settings_page_vm::voiceTest()
{
    QVERIFY(store("is~use~tts=1 call~count=2"));
    const std::unique_ptr<QObject> page(
        m_terminal->page("Module5Vm", "p.langIndex = 1; p.speed = 1; p.zytts = '到%1'"));
    auto* settings = static_cast<Module5Vm*>(page.get());
    const std::unique_ptr<ChecksVm> checks(this->checks());
    checks->voiceTest(settings);
    const QString call = "到8 0 0 1       ";
    QTRY_COMPARE(qApp->property("heard").toStringList(), QStringList({call, call}));
    const auto* engine = page->findChild<QTextToSpeech*>();
    QCOMPARE(engine->voice().name(), QString("Ting"));
    QCOMPARE(engine->rate(), 1.0);
    QCOMPARE(Settings::read("zy_tts_text"), QString());
    settings->setIsUseTts(false);
    checks->voiceTest(settings);
    QCOMPARE(checks->voiceResult(), QString("语音未启用，呼叫时不会播报"));
}

/// The page's port is opened for the test alone, and its cards reach no listener.
void tst_settings_page_vm::readers()
{
    const int line = ::posix_openpt(O_RDWR | O_NOCTTY);
    QVERIFY(line >= 0 && ::grantpt(line) == 0 && ::unlockpt(line) == 0);
    qputenv("KV_PANEL_COM5", ::ptsname(line));
    const std::unique_ptr<QObject> page(m_terminal->page("Module5Vm", "p.comIndex = 4; p.handIndex = 1"));
    const std::unique_ptr<ChecksVm> checks(this->checks());
    auto* settings = static_cast<Module5Vm*>(page.get());
    checks->startReading(settings);
    QVERIFY(::write(line,
                    "\x03"
                    "12345\r\n",
                    8) == 8);
    QTRY_COMPARE(checks->pReadingModel()->rowCount(), 1);
    const reading_struct reading = checks->pReadingModel()->row(0);
    QCOMPARE(reading.number, QString("00012345"));
    QCOMPARE(reading.raw, QString("03 31 32 33 34 35 0D 0A  .12345.."));
    // Of eight digits by what the page says; the raw text stays.
    settings->setIsRfid8(true);
    Q_EMIT MainClass::getInstance()->handReceived("X000011223344", "000011223344");
    checks->stopReading();
    QVERIFY(::write(line, "99999\r\n", 7) == 7);
    QTest::qWait(150);
    QCOMPARE(checks->pReadingModel()->rowCount(), 1);
    settings->setComIndex(6);
    checks->startReading(settings);
    QVERIFY(checks->readersResult().contains("COM7 打不开"));
    ::close(line);
}

void tst_settings_page_vm::linesAndDiagnosis()
{
    auto* config = GlobalConfig::getInstance();
    const QString url = m_terminal->house().url();
    const QString line = R"({"title": "%1", "domain": "%2"})";
    config->setSysApiReq(parseLines(R"({"lineCheckHttpPath": "/line/check", "reqLines": [{"subLines": [)" +
                                    line.arg("近", url) + "," + line.arg("远", "http://127.0.0.1:1") + "]}]}"));
    const QString inUse = config->apiUrl();
    const std::unique_ptr<ChecksVm> checks(this->checks());
    checks->measureLines();
    QVERIFY(checks->pLineModel()->row(0).isOk && checks->pLineModel()->row(0).result.endsWith("ms"));
    QCOMPARE(checks->pLineModel()->row(1).result, QString("离线"));
    QCOMPARE(config->apiUrl(), inUse);

    config->setLoginPwd("pass-word-1");
    Settings::write("zy_tts_text", "demo-secret-key-0001 pass-word-1 %1");
    checks->writeDiagnosis();
    QFile file(checks->diagnosisResult());
    QVERIFY2(file.open(QIODevice::ReadOnly), qPrintable(checks->diagnosisResult()));
    const QString text = QString::fromUtf8(file.readAll());
    QVERIFY(text.contains("zy_tts_text = *** *** %1") && text.contains("==== log of the day"));
    for (const QString& secret : {config->token(), config->secret(), config->secretKey()})
        QVERIFY(!secret.isEmpty() && !text.contains(secret));
    file.remove();
}

int main(int argc, char** argv)
{
    QCoreApplication application(argc, argv);
    if (argc == 2 && qstrcmp(argv[1], "write") == 0)
        return writeForEver();
    tst_settings_page_vm test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_settings_page_vm.moc"
