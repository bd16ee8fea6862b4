#include "entry/ProcessEntry.h"

#include "app/MainClass.h"
#include "common/DlgManager.h"
#include "common/GlobalConfig.h"
#include "common/LogFolder.h"
#include "common/MyMessage.h"
#include "common/QmlEventLoop.h"
#include "common/Sqlite.h"
#include "platform/QuitSignals.h"
#include "platform/SingleInstance.h"
#include "services/ServicesRegister.h"
#include "vm/mainpage/Fps.h"

#include <QDebug>
#include <QDir>
#include <QFile>
#include <QFontDatabase>
#include <QGuiApplication>
#include <QQmlApplicationEngine>
#include <QQmlContext>
#include <QSslSocket>
#include <QtConcurrent>

namespace {

void logTlsVersions()
{
    qDebug().noquote() << "Supports SSL: " << QSslSocket::supportsSsl();
    qDebug().noquote() << "Lib Build Version: " << QSslSocket::sslLibraryBuildVersionString();
    qDebug().noquote() << "Lib Runtime Version: " << QSslSocket::sslLibraryVersionString();
    if (!QSslSocket::supportsSsl())
        qDebug() << "This machine has no TLS library that Qt can use";
}

void registerSingletons()
{
    qmlRegisterSingletonInstance("MyMessage", 1, 0, "MyMessage", MyMessage::getInstance());
    qmlRegisterSingletonInstance("MainClass", 1, 0, "MainClass", MainClass::getInstance());
    qmlRegisterSingletonInstance("GlobalConfig", 1, 0, "GlobalConfig", GlobalConfig::getInstance());
    qmlRegisterSingletonInstance("DlgManager", 1, 0, "DlgManager", DlgManager::getInstance());
}

bool prepareSettings()
{
    Sqlite settings;
    if (!settings.open() || !settings.createTable())
        return false;
    settings.close();
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

void registerFont(QQmlApplicationEngine& engine, const QString& directory, const QString& name)
{
    const int font =
        QFontDatabase::addApplicationFont(QStringLiteral("%1/res/fonts/%2.ttf").arg(directory, name));
    const QStringList families = QFontDatabase::applicationFontFamilies(font);
    if (font < 0 || families.isEmpty()) {
        qDebug().noquote() << QStringLiteral("加载字体文件失败");
        // Takes effect when the event loop runs, which it doesn't yet.
        QMetaObject::invokeMethod(qApp, &QCoreApplication::quit, Qt::QueuedConnection);
        return;
    }
    engine.rootContext()->setContextProperty(name, families.first());
    // The application font is named before any font is loaded; what bears no such name here stands in for it.
    if (name == QLatin1String("Pinfang"))
        QFont::insertSubstitution(QGuiApplication::font().family(), families.first());
}

} // namespace

int runTerminal(int& argc, char** argv)
{
    if (!claimSingleInstance())
        return -1;

    QCoreApplication::setAttribute(Qt::AA_UseSoftwareOpenGL, true);
    QGuiApplication application(argc, argv);
    quitOnTerminationSignals();
    QtConcurrent::run(prepareLog);
    logTlsVersions();
    const QString directory = QCoreApplication::applicationDirPath();
    QFile marker(QStringLiteral("%1/%2.log").arg(logFolder(), QStringLiteral("STEP1")));
    QGuiApplication::setFont(QFont(QStringLiteral("PingFang SC")));

    registerSingletons();
    if (!prepareSettings()) {
        qDebug() << "STEP 2";
        QCoreApplication::quit();
        return -1;
    }
    if (!GlobalConfig::getInstance()->initLibcurl()) {
        markMissingLibcurl(marker);
        QCoreApplication::quit();
        return -1;
    }
    ServicesRegister::getInstance()->init();
    qmlRegisterType<QmlEventLoop>("QmlEventLoop", 1, 0, "QmlEventLoop");
    qmlRegisterType<Fps>("Fps", 1, 0, "Fps");

    QQmlApplicationEngine engine;
    registerFont(engine, directory, QStringLiteral("iconfont"));
    registerFont(engine, directory, QStringLiteral("Pinfang"));
    const QUrl root(QStringLiteral("qrc:/main.qml"));
    QObject::connect(
        &engine, &QQmlApplicationEngine::objectCreated, &application,
        [root](QObject* object, const QUrl& url) {
            if (!object && url == root)
                QCoreApplication::exit(-1);
        },
        Qt::QueuedConnection);
    engine.load(root);
    return QGuiApplication::exec();
}
