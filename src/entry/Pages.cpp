#include "entry/Pages.h"

#include "app/MainClass.h"
#include "common/CallWatch.h"
#include "common/DlgManager.h"
#include "common/GlobalConfig.h"
#include "common/Modules.h"
#include "common/MyMessage.h"
#include "common/QmlEventLoop.h"
#include "entry/PictureGuard.h"
#include "vm/dialogs/DialogsRegister.h"
#include "vm/mainpage/Fps.h"
#include "vm/module1/Module1Register.h"
#include "vm/module2/Module2Register.h"
#include "vm/module3/Module3Register.h"
#include "vm/module4/Module4Register.h"
#include "vm/module5/Module5Register.h"
#include "vm/module6/Module6Register.h"
#include "vm/module7/Module7Register.h"
#include "vm/module8/Module8Register.h"
#include "vm/module9/Module9Register.h"
#include "vm/shared/TapWatch.h"

#include <QDebug>
#include <QFontDatabase>
#include <QGuiApplication>
#include <QQmlApplicationEngine>
#include <QQmlContext>

namespace {

void registerFont(QQmlEngine& engine, const QString& directory, const QString& name)
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

void registerSingletons()
{
    qmlRegisterSingletonInstance("MyMessage", 1, 0, "MyMessage", MyMessage::getInstance());
    qmlRegisterSingletonInstance("MainClass", 1, 0, "MainClass", MainClass::getInstance());
    qmlRegisterSingletonInstance("GlobalConfig", 1, 0, "GlobalConfig", GlobalConfig::getInstance());
    qmlRegisterSingletonInstance("CallWatch", 1, 0, "CallWatch", CallWatch::getInstance());
    qmlRegisterSingletonInstance("DlgManager", 1, 0, "DlgManager", DlgManager::getInstance());
    qmlRegisterSingletonInstance("Modules", 1, 0, "Modules", Modules::getInstance());
}

void registerTypes()
{
    DialogsRegister::getInstance()->init();
    Module1Register().init();
    Module2Register().init();
    Module3Register().init();
    Module4Register().init();
    Module5Register().init();
    Module6Register().init();
    Module7Register().init();
    Module8Register().init();
    Module9Register().init();
    qmlRegisterType<QmlEventLoop>("QmlEventLoop", 1, 0, "QmlEventLoop");
    qmlRegisterType<Fps>("Fps", 1, 0, "Fps");
}

void loadFonts(QQmlEngine& engine, const QString& directory)
{
    registerFont(engine, directory, QStringLiteral("iconfont"));
    registerFont(engine, directory, QStringLiteral("Pinfang"));
}

void loadPages(QQmlApplicationEngine& engine, const QString& directory)
{
    TapWatch::install();
    static PictureGuard pictures;
    pictures.guard(engine);
    loadFonts(engine, directory);
    const QUrl root(QStringLiteral("qrc:/main.qml"));
    QObject::connect(
        &engine, &QQmlApplicationEngine::objectCreated, qApp,
        [root](QObject* object, const QUrl& url) {
            if (!object && url == root)
                QCoreApplication::exit(-1);
        },
        Qt::QueuedConnection);
    engine.load(root);
}
