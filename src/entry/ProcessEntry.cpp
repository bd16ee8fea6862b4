#include "entry/ProcessEntry.h"

#include "DeploymentValues.h"
#include "app/MainClass.h"
#include "common/GlobalConfig.h"
#include "common/Log.h"
#include "common/LogFolder.h"
#include "common/MyMessage.h"
#include "common/Settings.h"
#include "common/Sqlite.h"
#include "entry/Options.h"
#include "entry/Pages.h"
#include "inspect/PlaceServer.h"
#include "inspect/SelfTest.h"
#include "platform/PrivateFiles.h"
#include "platform/QuitSignals.h"
#include "platform/SingleInstance.h"
#include "platform/UserValues.h"
#include "services/ServicesRegister.h"

#include <QDebug>
#include <QDir>
#include <QFile>
#include <QGuiApplication>
#include <QQmlApplicationEngine>
#include <QQuickStyle>
#include <QSslSocket>
#include <QWindow>
#include <QtConcurrent>

#include <cstdio>
#include <memory>

namespace {

/// The log from here to the end of the scope, however it ends: the cause of a failed start is worth the wait.
class LogUse
{
public:
    LogUse() : m_preparation(QtConcurrent::run(prepareLog)) {}
    LogUse(const LogUse&) = delete;
    LogUse& operator=(const LogUse&) = delete;
    ~LogUse()
    {
        waitUntilReady();
        finishLog();
    }

    /// What is logged behind this reaches the file; what comes before may not.
    void waitUntilReady() const { QFuture<void>(m_preparation).waitForFinished(); }

private:
    const QFuture<void> m_preparation;
};

/// For whoever started the program, and for the log.
void tell(const QString& text)
{
    std::fputs(QStringLiteral("kv_panel: %1\n").arg(text).toLocal8Bit().constData(), stderr);
    qDebug().noquote() << text;
}

void logTlsVersions()
{
    qDebug().noquote().nospace() << "Supports SSL: " << QSslSocket::supportsSsl();
    qDebug().noquote().nospace() << "Lib Build Version: " << QSslSocket::sslLibraryBuildVersionString();
    qDebug().noquote().nospace() << "Lib Runtime Version: " << QSslSocket::sslLibraryVersionString();
    if (!QSslSocket::supportsSsl())
        qDebug() << "This machine has no TLS library that Qt can use";
}

bool prepareSettings(QString& asideName)
{
    Sqlite settings;
    if (!settings.open() || !settings.createTable())
        return false;
    settings.close();
    asideName = settings.asideName();
    return true;
}

/// The log's writer may never get to its lines on this road, so that the cause is left in a file of its own.
void markMissingLibcurl(QFile& marker)
{
    const QString cause = QStringLiteral("加载libcurl.dll失败");
    QDir().mkpath(logFolder());
    if (marker.open(QIODevice::WriteOnly | QIODevice::Append)) {
        marker.write((cause + QLatin1Char('\n')).toUtf8());
        marker.close();
    }
    qDebug().noquote() << cause;
}

} // namespace

int runTerminal(int& argc, char** argv)
{
    QStringList arguments;
    for (int i = 1; i < argc; ++i)
        arguments.append(QString::fromLocal8Bit(argv[i]));
    const Options options = Options::parse(arguments);
    if (!options.answer.isEmpty()) {
        std::fputs(options.answer.toLocal8Bit().constData(), options.exitCode == 0 ? stdout : stderr);
        return options.exitCode;
    }
    keepFilesPrivate();
    // The cache of compiled pages is looked for below the working directory.
    qputenv("QML_DISABLE_DISK_CACHE", "1");
    QString cause;
    const Claim claim = claimSingleInstance(cause);
    if (claim == Claim::Taken) {
        const QCoreApplication application(argc, argv);
        const LogUse log;
        log.waitUntilReady();
        tell(cause);
        return -1;
    }

    QCoreApplication::setAttribute(Qt::AA_UseSoftwareOpenGL, true);
    QGuiApplication application(argc, argv);
    QCoreApplication::setApplicationVersion(QLatin1String(Deployment::version));
    quitOnTerminationSignals();
    const LogUse log;
    if (claim == Claim::Unguarded) {
        log.waitUntilReady();
        tell(cause);
    }
    for (const QString& path : {UserValues::path(), QStringLiteral("kv_panel_v2.db"), logFolder()})
        makePrivate(path);
    logTlsVersions();
    const QString directory = QCoreApplication::applicationDirPath();
    QFile marker(QStringLiteral("%1/%2.log").arg(logFolder(), QStringLiteral("STEP1")));
    QGuiApplication::setFont(QFont(QStringLiteral("PingFang SC")));

    registerSingletons();
    if (Settings::isOn(QStringLiteral("is_use_tts"))) {
        log.waitUntilReady();
        MainClass::getInstance()->initTts();
    }
    QString asideName;
    if (!prepareSettings(asideName)) {
        log.waitUntilReady();
        qDebug() << "STEP 2";
        QCoreApplication::quit();
        return -1;
    }
    if (!GlobalConfig::getInstance()->initLibcurl()) {
        log.waitUntilReady();
        markMissingLibcurl(marker);
        QCoreApplication::quit();
        return -1;
    }
    ServicesRegister::getInstance()->init();
    registerTypes();
    QQuickStyle::setStyle(QStringLiteral("Default"));
    QQmlApplicationEngine engine;
    if (options.isWindowed) {
        engine.setInitialProperties({{QStringLiteral("visibility"), QWindow::Windowed},
                                     {QStringLiteral("width"), 1366},
                                     {QStringLiteral("height"), 768}});
    }
    loadPages(engine, directory);
    if (!asideName.isEmpty()) {
        tell(QStringLiteral("the settings were no database; they are kept as ") + asideName);
        MyMessage::getInstance()->ShowError(
            QStringLiteral("设置文件已损坏,已另存为%1,请重新设置本机").arg(asideName));
    }
    std::unique_ptr<PlaceServer> places;
    if (!options.placesSocket.isEmpty())
        places = std::make_unique<PlaceServer>(options.placesSocket);
    if (places && !places->isOpen())
        tell(QStringLiteral("--places: %1: %2").arg(options.placesSocket, places->error()));
    std::unique_ptr<SelfTest> selfTest;
    if (options.isSelfTest && !engine.rootObjects().isEmpty()) {
        selfTest = std::make_unique<SelfTest>(engine, options.staffNo,
                                              qEnvironmentVariable("KV_PANEL_PASSWORD"), options.pictureFolder);
        selfTest->setIsStrict(options.isStrict);
    }
    return QGuiApplication::exec();
}
