// The program itself, from its first instruction on, in a folder of its own.

#include "common/Settings.h"
#include "support/HouseProcess.h"

#include <QDir>
#include <QTemporaryDir>
#include <QtTest>

#include <memory>
#include <sys/stat.h>

namespace {

/// A copy of the installed program: its log and its fonts lie beside it.
class Installation
{
public:
    Installation()
    {
        const QString bin = HouseProcess::programFolder();
        QFile::copy(bin + "/kv_panel", path("kv_panel"));
        QDir(m_folder.path()).mkpath("res/fonts");
        for (const char* font : {"/res/fonts/iconfont.ttf", "/res/fonts/Pinfang.ttf"})
            QFile::link(bin + font, m_folder.path() + font);
        QFile identity(path("KV_PANEL_V2.ini"));
        identity.open(QIODevice::WriteOnly);
        identity.write("authCode=KV-DEMO-0001\nsecretKey=demo-secret-key-0001\n");
    }

    QString path(const QString& name) const { return m_folder.filePath(name); }
    /// What all of today's log holds.
    QString log() const
    {
        QString text;
        for (const QFileInfo& entry : QDir(path("log")).entryInfoList({"20*.log"})) {
            QFile file(entry.filePath());
            if (file.open(QIODevice::ReadOnly))
                text += QString::fromUtf8(file.readAll());
        }
        return text;
    }

private:
    QTemporaryDir m_folder;
};

/// One run of it.
class Run : public QProcess
{
public:
    Run(const Installation& place, const QString& endpoint, const QStringList& options = {})
    {
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        for (const char* folder : {"XDG_CONFIG_HOME", "TMPDIR", "XDG_RUNTIME_DIR"})
            environment.insert(folder, place.path({}));
        environment.insert("KV_PANEL_API_URLS", endpoint);
        environment.insert("KV_PANEL_PASSWORD", "1001");
        environment.insert("ASAN_OPTIONS", "detect_leaks=0"); // of windows, constant
        setProcessEnvironment(environment);
        setProcessChannelMode(MergedChannels);
        setWorkingDirectory(place.path({}));
        start(place.path("kv_panel"), options);
        waitForStarted();
    }
    ~Run() override { end(); }

    /// As a service manager ends it.
    int end() { return terminate(), code(); }
    /// Waits for the end; the exit code as the shell shows it.
    int code(int limitMs = 20000) { return waitForFinished(limitMs) ? exitCode() : -1; }
};

constexpr int failureCode = 255; // -1

} // namespace

class tst_process : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        m_house.reset(new HouseProcess);
        QVERIFY(m_house->isReady());
    }
    void init() { m_house->reset(); }

    void startsAndRuns();
    void oneInstanceAtATime();
    void nothingIsLoadedFromTheWorkingFolder();
    void placesThatCannotBeToldOf();
    void failedStart_data();
    void failedStart();
    void selfTest_data();
    void selfTest();

private:
    int starts() { return m_house->executed("/baa00/getSysInitByAuthCode"); }

    std::unique_ptr<HouseProcess> m_house;
};

void tst_process::startsAndRuns()
{
    Installation place;
    {
        Run run(place, m_house->url());
        QTRY_VERIFY_WITH_TIMEOUT(starts() == 1, 20000);
        QTRY_VERIFY_WITH_TIMEOUT(place.log().contains("/baa00/getSysInitByAuthCode?timestamp="), 5000);
        QVERIFY(run.state() == QProcess::Running);
        QCOMPARE(run.end(), 0);
    }
    // Settings, identity and log are the user's alone, also those that were readable by everybody before.
    for (const char* name : {"kv_panel_v2.db", "KV_PANEL_V2.ini", "KV_PANEL_V2.lock", "log"}) {
        constexpr QFile::Permissions others =
            QFile::ReadGroup | QFile::WriteGroup | QFile::ReadOther | QFile::WriteOther;
        const QFileInfo file(place.path(name));
        QVERIFY2(file.exists() && (file.permissions() & others) == 0, name);
    }
    // Nothing that QML complains of: a warning names the file.
    QVERIFY2(!place.log().contains("qrc:/"), qPrintable(place.log()));

    // Again, with a voice; a machine that has none tells the log alone.
    QDir::setCurrent(place.path({}));
    QVERIFY(Settings::write("is_use_tts", "1"));
    QDir::setCurrent(QDir::rootPath());
    Run again(place, m_house->url());
    QTRY_VERIFY_WITH_TIMEOUT(starts() == 2, 20000);
    QTRY_VERIFY(place.log().contains("STEP 1\n"));
    QVERIFY(place.log().contains("STEP 8\n") != place.log().contains("初始化tts失败将无法使用tts\n"));
    QVERIFY2(!place.log().contains("QTextToSpeech"), qPrintable(place.log()));
}

void tst_process::oneInstanceAtATime()
{
    Installation place;
    Run first(place, m_house->url());
    QTRY_VERIFY_WITH_TIMEOUT(starts() == 1, 20000);
    Run second(place, m_house->url());
    QCOMPARE(second.code(), failureCode);
    const QString cause = "another terminal runs already, it holds " + place.path("KV_PANEL_V2.lock");
    QVERIFY(QString(second.readAll()).contains("kv_panel: " + cause) && place.log().contains(cause));
    QVERIFY(first.state() == QProcess::Running);
    QCOMPARE(starts(), 1);

    // One that was killed locks nobody out.
    first.kill();
    first.waitForFinished();
    Run next(place, m_house->url());
    QTRY_VERIFY_WITH_TIMEOUT(starts() == 2, 20000);
}

void tst_process::nothingIsLoadedFromTheWorkingFolder()
{
    // Whoever opens one of these waits for good.
    Installation place;
    for (const char* name :
         {":/main.qmlc", ":/js/Glyphs.jsc", ":/js/Func.jsc", ":/qml/Components/Theme.qmlc"}) {
        const QString trap = place.path("./") + name;
        QVERIFY(QDir().mkpath(QFileInfo(trap).path()));
        QCOMPARE(::mkfifo(trap.toLocal8Bit().constData(), 0600), 0);
    }
    Run run(place, m_house->url());
    QTRY_VERIFY_WITH_TIMEOUT(place.log().contains("SETP 1"), 20000); // the main page is there
    QCOMPARE(run.end(), 0);
}

void tst_process::placesThatCannotBeToldOf()
{
    Installation place;
    Run run(place, m_house->url(), {"--places", place.path("none/places")});
    QTRY_VERIFY_WITH_TIMEOUT(starts() == 1, 20000);
    QCOMPARE(run.end(), 0);
    QVERIFY(run.readAll().contains("kv_panel: --places: ") && place.log().contains("--places: "));
}

// clang-format off
void tst_process::failedStart_data()
{
    QTest::addColumn<QString>("spoilt");
    QTest::addColumn<int>("code");
    QTest::addColumn<QString>("cause"); // a line of the log
    QTest::newRow("settings") << "kv_panel_v2.db" << failureCode << "STEP 2\n";
    QTest::newRow("http library") << "libcurl.so.4" << failureCode << "加载libcurl.dll失败\n";
    // An ordinary end, before the start page has asked for anything.
    QTest::newRow("font") << "res/fonts/iconfont.ttf" << 0 << "加载字体文件失败\n";
}

void tst_process::selfTest_data()
{
    QTest::addColumn<QString>("options");
    QTest::addColumn<QString>("refused"); // none: there is no back end
    QTest::addColumn<QStringList>("lines");
    // What one of the calls refuses is told of the pages that make it, and of no others.
    QTest::newRow("staff") << "--selftest --staff 1001" << "/bba01/getOccTypeList"
        << QStringList{"FAILED  openRoomDlg/empty/OCCUPY_ROOM: ", "ok      Module1\n", "ok      openRoomDlg/empty/REST_ROOM\n",
                       "ok      roomDetailDlg/massage/UNION_ROOM\n", "ok      roomDetailDlg/rest/ADD_TIME\n",
                       "ok      Module1/left\n", "ok      loginDlg\n", "ok      cloudDlg\n"};
    // What the modules are refused then is no failure; what the dialogs are told is.
    QTest::newRow("nobody") << "--selftest" << "/kvsystem/common/getSysApiReqUrls"
        << QStringList{"FAILED  cloudDlg: ", "FAILED  todaySumDlg: ", "ok      Module1: "};
    QTest::newRow("no back end") << "--selftest" << ""
        << QStringList{"FAILED  mainPage: ", "FAILED  cloudDlg: ", "FAILED  todaySumDlg: ", "ok      numKeyDlg\n"};
}
// clang-format on

void tst_process::failedStart()
{
    QFETCH(QString, spoilt);
    QFETCH(int, code);
    QFETCH(QString, cause);
    Installation place;
    // A library beside the program is found before the system's; this one has no entry points.
    const bool isLibrary = spoilt.startsWith("libcurl");
    QFile::remove(place.path(spoilt));
    QVERIFY(isLibrary ? QFile::copy(HOLLOW_LIBRARY, place.path(spoilt)) : QDir().mkdir(place.path(spoilt)));
    Run run(place, m_house->url());
    QCOMPARE(run.code(), code);
    QCOMPARE(starts(), 0);
    QVERIFY2(place.log().contains(cause), qPrintable(place.log()));
    QFile marker(place.path("log/STEP1.log"));
    QCOMPARE(marker.open(QIODevice::ReadOnly), isLibrary);
    QCOMPARE(isLibrary ? QString(marker.readAll()) : cause, cause);
}

void tst_process::selfTest()
{
    QFETCH(QString, options);
    QFETCH(QString, refused);
    QFETCH(QStringList, lines);
    Installation place;
    Run run(place, refused.isEmpty() ? "http://127.0.0.1:1" : m_house->url(), options.split(' '));
    if (!refused.isEmpty()) {
        QTRY_VERIFY_WITH_TIMEOUT(starts() == 1, 20000);
        m_house->fault(refused, "refuse:CLOSED");
    }
    QCOMPARE(run.code(200000), 1);
    const QString output = run.readAll();
    QVERIFY2(output.count("\nFAILED") == lines.filter("FAILED").size(), qPrintable(output));
    for (const QString& line : lines)
        QVERIFY2(output.contains('\n' + line), qPrintable(line + " isn't in\n" + output));
}

QTEST_GUILESS_MAIN(tst_process)
#include "tst_process.moc"
