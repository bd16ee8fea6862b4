// The program itself, from its first instruction on, in a folder of its own.

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
        QFile::copy(bin + QStringLiteral("/kv_panel"), program());
        QDir(m_folder.path()).mkpath(QStringLiteral("res/fonts"));
        for (const char* font : {"iconfont", "Pinfang"}) {
            const QString path = QStringLiteral("/res/fonts/%1.ttf").arg(QLatin1String(font));
            QFile::link(bin + path, m_folder.path() + path);
        }
        QFile identity(m_folder.filePath(QStringLiteral("KV_PANEL_V2.ini")));
        identity.open(QIODevice::WriteOnly);
        identity.write("authCode=KV-DEMO-0001\nsecretKey=demo-secret-key-0001\n");
    }

    QString path(const QString& name) const { return m_folder.filePath(name); }
    QString program() const { return path(QStringLiteral("kv_panel")); }

    /// What all of today's log holds.
    QString log() const
    {
        QString text;
        for (const QFileInfo& entry :
             QDir(path(QStringLiteral("log"))).entryInfoList({QStringLiteral("20*.log")})) {
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
class Run
{
public:
    Run(const Installation& place, const QString& endpoint, const QMap<QString, QString>& variables = {},
        const QStringList& options = {})
    {
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(QStringLiteral("XDG_CONFIG_HOME"), place.path(QString()));
        environment.insert(QStringLiteral("XDG_RUNTIME_DIR"), place.path(QString()));
        environment.insert(QStringLiteral("KV_PANEL_API_URLS"), endpoint);
        environment.insert(QStringLiteral("ASAN_OPTIONS"),
                           QStringLiteral("detect_leaks=0")); // of windows, constant
        for (auto it = variables.constBegin(); it != variables.constEnd(); ++it)
            environment.insert(it.key(), it.value());
        m_process.setProcessEnvironment(environment);
        m_process.setProcessChannelMode(QProcess::MergedChannels);
        m_process.setWorkingDirectory(place.path(QString()));
        m_process.start(place.program(), options);
        m_process.waitForStarted();
    }
    ~Run() { end(); }

    /// As a service manager ends it; killed when it doesn't.
    int end()
    {
        m_process.terminate();
        return m_process.waitForFinished(20000) ? m_process.exitCode() : -1;
    }
    void killHard()
    {
        m_process.kill();
        m_process.waitForFinished();
    }

    bool isRunning() const { return m_process.state() == QProcess::Running; }
    /// Waits for the end; the exit code as the shell shows it.
    int exitCode(int limitMs = 20000) { return m_process.waitForFinished(limitMs) ? m_process.exitCode() : -1; }
    QString output() { return QString::fromUtf8(m_process.readAll()); }

private:
    QProcess m_process;
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
    void secondInstanceEnds();
    void nothingIsLoadedFromTheWorkingFolder();
    void placesThatCannotBeToldOf();
    void killedInstanceLocksNobodyOut();
    void settingsThatCannotBeMade();
    void missingHttpLibrary();
    void missingFont();
    void selfTest();
    void selfTestWithoutStaff();
    void selfTestWithoutABackEnd();

private:
    bool isUp() { return m_house->executed(QStringLiteral("/baa00/getSysInitByAuthCode")) > 0; }

    std::unique_ptr<HouseProcess> m_house;
};

void tst_process::startsAndRuns()
{
    Installation place;
    {
        Run run(place, m_house->url());
        QTRY_VERIFY_WITH_TIMEOUT(isUp(), 20000);
        QTRY_VERIFY_WITH_TIMEOUT(place.log().contains(QStringLiteral("/baa00/getSysInitByAuthCode?timestamp=")),
                                 5000);
        QVERIFY(run.isRunning());
        QCOMPARE(run.end(), 0);
    }
    // Settings, identity and log are the user's alone, also those that were readable by everybody before.
    for (const char* name : {"kv_panel_v2.db", "KV_PANEL_V2.ini", "KV_PANEL_V2.lock", "log"}) {
        constexpr QFile::Permissions others =
            QFile::ReadGroup | QFile::WriteGroup | QFile::ReadOther | QFile::WriteOther;
        const QFileInfo file(place.path(QLatin1String(name)));
        QVERIFY2(file.exists() && (file.permissions() & others) == 0, name);
    }
    // Nothing that QML complains of: a warning names the file.
    QVERIFY2(!place.log().contains(QStringLiteral("qrc:/")), qPrintable(place.log()));

    Run again(place, m_house->url());
    QTRY_VERIFY_WITH_TIMEOUT(m_house->executed(QStringLiteral("/baa00/getSysInitByAuthCode")) == 2, 20000);
}

void tst_process::secondInstanceEnds()
{
    Installation place;
    Run first(place, m_house->url());
    QTRY_VERIFY_WITH_TIMEOUT(isUp(), 20000);
    Run second(place, m_house->url());
    QCOMPARE(second.exitCode(), failureCode);
    const QString cause = QStringLiteral("another terminal runs already, it holds ") +
                          place.path(QStringLiteral("KV_PANEL_V2.lock"));
    QVERIFY(second.output().contains(QStringLiteral("kv_panel: ") + cause));
    QVERIFY(place.log().contains(cause));
    QVERIFY(first.isRunning());
    QCOMPARE(m_house->executed(QStringLiteral("/baa00/getSysInitByAuthCode")), 1);
}

void tst_process::nothingIsLoadedFromTheWorkingFolder()
{
    // Whoever opens one of these waits for good.
    Installation place;
    for (const char* name :
         {":/main.qmlc", ":/js/Glyphs.jsc", ":/js/Func.jsc", ":/qml/Components/Theme.qmlc"}) {
        const QString trap = place.path(QStringLiteral("./")) + QLatin1String(name);
        QVERIFY(QDir().mkpath(QFileInfo(trap).path()));
        QCOMPARE(::mkfifo(trap.toLocal8Bit().constData(), 0600), 0);
    }
    Run run(place, m_house->url());
    QTRY_VERIFY_WITH_TIMEOUT(place.log().contains(QStringLiteral("SETP 1")), 20000); // the main page is there
    QCOMPARE(run.end(), 0);
}

void tst_process::placesThatCannotBeToldOf()
{
    Installation place;
    Run run(place, m_house->url(), {}, {QStringLiteral("--places"), place.path(QStringLiteral("none/places"))});
    QTRY_VERIFY_WITH_TIMEOUT(isUp(), 20000);
    QCOMPARE(run.end(), 0);
    QVERIFY(run.output().contains(QStringLiteral("kv_panel: --places: ")));
    QVERIFY(place.log().contains(QStringLiteral("--places: ")));
}

void tst_process::killedInstanceLocksNobodyOut()
{
    Installation place;
    Run killed(place, m_house->url());
    QTRY_VERIFY_WITH_TIMEOUT(isUp(), 20000);
    killed.killHard();
    Run next(place, m_house->url());
    QTRY_VERIFY_WITH_TIMEOUT(m_house->executed(QStringLiteral("/baa00/getSysInitByAuthCode")) == 2, 20000);
}

void tst_process::settingsThatCannotBeMade()
{
    Installation place;
    QVERIFY(QDir().mkdir(place.path(QStringLiteral("kv_panel_v2.db"))));
    Run run(place, m_house->url());
    QCOMPARE(run.exitCode(), failureCode);
    QVERIFY(!isUp());
    QVERIFY2(place.log().contains(QStringLiteral("STEP 2\n")), qPrintable(place.log()));
}

void tst_process::missingHttpLibrary()
{
    // A library of that name beside the program is found before the system's; this one has no entry points.
    Installation place;
    QVERIFY(QFile::copy(QStringLiteral(HOLLOW_LIBRARY), place.path(QStringLiteral("libcurl.so.4"))));
    Run run(place, m_house->url());
    QCOMPARE(run.exitCode(), failureCode);
    QFile marker(place.path(QStringLiteral("log/STEP1.log")));
    QVERIFY(marker.open(QIODevice::ReadOnly));
    QCOMPARE(QString::fromUtf8(marker.readAll()), QStringLiteral("加载libcurl.dll失败\n"));
    QVERIFY(!isUp());
}

void tst_process::missingFont()
{
    Installation place;
    QVERIFY(QFile::remove(place.path(QStringLiteral("res/fonts/iconfont.ttf"))));
    Run run(place, m_house->url());
    QCOMPARE(run.exitCode(), 0); // an ordinary end, before the start page has asked for anything
    QVERIFY(!isUp());
    QVERIFY2(place.log().contains(QStringLiteral("加载字体文件失败\n")), qPrintable(place.log()));
}

/// Of the self-test's lines those that tell of a failure.
static QStringList failures(const QString& output)
{
    QStringList found;
    for (const QString& line : output.split(QLatin1Char('\n'))) {
        if (line.startsWith(QLatin1String("FAILED")))
            found.append(line.mid(8));
    }
    return found;
}

void tst_process::selfTest()
{
    // What one of the calls refuses is told of the pages that make it, and of no others.
    m_house->fault(QStringLiteral("/bba01/getOccTypeList"), QStringLiteral("refuse:CLOSED"));
    Installation place;
    Run run(place, m_house->url(), {{QStringLiteral("KV_PANEL_PASSWORD"), QStringLiteral("1001")}},
            {QStringLiteral("--selftest"), QStringLiteral("--staff"), QStringLiteral("1001")});
    QCOMPARE(run.exitCode(200000), 1);
    const QString output = run.output();
    const QStringList failed = failures(output);
    QVERIFY2(failed.size() == 1 && failed.first().startsWith(QLatin1String("openRoomDlg/empty/OCCUPY_ROOM: ")),
             qPrintable(output));
    for (const char* look : {"Module1", "openRoomDlg/empty/REST_ROOM", "roomDetailDlg/massage/UNION_ROOM",
                             "roomDetailDlg/rest/ADD_TIME", "loginDlg", "cloudDlg"})
        QVERIFY2(output.contains(QStringLiteral("\nok      %1\n").arg(QLatin1String(look))),
                 qPrintable(output));
}

void tst_process::selfTestWithoutStaff()
{
    // What the modules are refused then is no failure; what the dialogs are told is.
    Installation place;
    Run run(place, m_house->url(), {}, {QStringLiteral("--selftest")});
    QTRY_VERIFY_WITH_TIMEOUT(isUp(), 20000);
    m_house->fault(QStringLiteral("/kvsystem/common/getSysApiReqUrls"), QStringLiteral("refuse:CLOSED"));
    QCOMPARE(run.exitCode(200000), 1);
    const QString output = run.output();
    const QStringList failed = failures(output);
    QVERIFY2(failed.size() == 1 && failed.first().startsWith(QLatin1String("cloudDlg: ")), qPrintable(output));
    QVERIFY2(output.contains(QStringLiteral("\nok      Module1: ")), qPrintable(output));
}

void tst_process::selfTestWithoutABackEnd()
{
    Installation place;
    Run run(place, QStringLiteral("http://127.0.0.1:1"), {}, {QStringLiteral("--selftest")});
    QCOMPARE(run.exitCode(100000), 1);
    const QString output = run.output();
    const QStringList failed = failures(output);
    QVERIFY2(failed.size() == 2 && failed.first().startsWith(QLatin1String("mainPage: ")) &&
                 failed.last().startsWith(QLatin1String("cloudDlg: ")),
             qPrintable(output));
    QVERIFY2(output.contains(QStringLiteral("\nok      numKeyDlg\n")), qPrintable(output));
}

QTEST_GUILESS_MAIN(tst_process)
#include "tst_process.moc"
