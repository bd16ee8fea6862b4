#include "inspect/SelfTest.h"

#include "common/GlobalConfig.h"
#include "common/Modules.h"
#include "inspect/ScreenItems.h"
#include "vm/dialogs/LoginVm.h"

#include <QAbstractItemModel>
#include <QCoreApplication>
#include <QPointer>
#include <QQmlApplicationEngine>
#include <QQmlComponent>
#include <QQmlContext>
#include <QQuickItem>

namespace {

/// A board begins to fetch with its first tick, half a second after it stands.
constexpr int pageTurnMs = 1500;

const QString mainPage = QStringLiteral("mainPage");

std::function<QObject*()> itemNamed(const QString& name)
{
    return [name]() -> QObject* { return findPageItem(name); };
}

void closeDialog(QObject* dialog) { QMetaObject::invokeMethod(dialog, "finish", Q_ARG(QVariant, false)); }

std::vector<QJSValue> elementsOf(const QJSValue& list)
{
    std::vector<QJSValue> elements;
    for (quint32 i = 0; i < list.property(QStringLiteral("length")).toUInt(); ++i)
        elements.push_back(list.property(i));
    return elements;
}

} // namespace

SelfTest::SelfTest(QQmlApplicationEngine& engine, const QString& staffNo, const QString& password,
                   const QString& pictureFolder, QObject* parent)
    : QObject(parent), m_engine(engine), m_staffNo(staffNo), m_password(password),
      m_runner(engine, pictureFolder)
{
    QQmlEngine::setObjectOwnership(this, QQmlEngine::CppOwnership);
    QQmlComponent opener(&engine, QUrl(QStringLiteral("qrc:/qml/SelfTest.qml")));
    m_opener.reset(opener.create(qmlContext(engine.rootObjects().value(0))));
    // Without a main page there are no modules, but there are dialogs.
    m_runner.append({mainPage, [] {}, itemNamed(mainPage), [this](QObject*) { planLogin(); }});
    if (m_opener) {
        m_opener->setProperty("test", QVariant::fromValue<QObject*>(this));
        for (const Look& look : dialogs(QStringLiteral("dialogs"), false))
            m_runner.append(look);
    } else {
        m_runner.append({opener.errorString(), [] {}, [] { return nullptr; }, {}});
    }
    connect(&m_runner, &LookRunner::finished, this,
            [](int failures) { QCoreApplication::exit(failures == 0 ? 0 : 1); });
    m_runner.start();
}

SelfTest::~SelfTest() = default;

void SelfTest::planLogin()
{
    planModules();
    if (m_staffNo.isEmpty()) {
        m_runner.report(QStringLiteral("--      nobody is logged in"));
        return;
    }
    const auto logIn = [this] {
        LoginVm login;
        login.setModCode(QStringLiteral("ROOMINFO_CTRL"));
        m_isLoggedIn = login.login(m_staffNo, m_password, QString());
    };
    const auto mainPageOnceIn = [this]() -> QObject* {
        return m_isLoggedIn ? findPageItem(mainPage) : nullptr;
    };
    m_runner.insert({{QStringLiteral("login"), logIn, mainPageOnceIn, {}, false}});
}

void SelfTest::planModules()
{
    std::vector<Look> looks;
    for (const Module& module : Modules::all()) {
        const QString page = QLatin1String(module.page);
        if (page.isEmpty())
            continue;
        const auto leave = [this, page](QObject*) {
            std::vector<Look> inside = dialogs(page, true);
            inside.push_back({page + QStringLiteral("/left"),
                              [] { QMetaObject::invokeMethod(findPageItem(mainPage), "leaveModule"); },
                              itemNamed(QStringLiteral("tileGrid")),
                              {},
                              false});
            m_runner.insert(inside);
        };
        looks.push_back({page, [this, &module] { openModule(module); }, itemNamed(page), leave, true,
                         pageTurnMs, barringOf(page)});
    }
    m_runner.insert(looks);
}

void SelfTest::openModule(const Module& module)
{
    m_runner.setCountsMessages(m_isLoggedIn);
    const QVariantMap login{{QStringLiteral("staffNo"), m_staffNo},
                            {QStringLiteral("userNo"), m_staffNo},
                            {QStringLiteral("pwd"), m_password},
                            {QStringLiteral("staffId"), GlobalConfig::getInstance()->userInfo()->staffId()}};
    QMetaObject::invokeMethod(findPageItem(mainPage), "openModule",
                              Q_ARG(QVariant, QString::fromLatin1(module.code)), Q_ARG(QVariant, login));
}

std::vector<Look> SelfTest::dialogs(const QString& folder, bool isOfModule)
{
    std::vector<Look> looks;
    for (const QJSValue& opening : elementsOf(asked("openings", folder))) {
        const QString name = opening.property(QStringLiteral("name")).toString();
        const QJSValue missing = opening.property(QStringLiteral("missing"));
        if (missing.toBool())
            m_runner.report(QStringLiteral("--      %1: %2").arg(name, missing.toString()));
        else
            looks.push_back(dialogLook(name, opening, isOfModule));
    }
    return looks;
}

Look SelfTest::dialogLook(const QString& name, const QJSValue& opening, bool isOfModule)
{
    const QString dialog = opening.property(QStringLiteral("dialog")).toString();
    const auto open = [this, opening, isOfModule] {
        // Whatever became of the modules before, the other dialogs need nobody.
        m_runner.setCountsMessages(!isOfModule || m_isLoggedIn);
        called(opening.property(QStringLiteral("open")));
    };
    const auto close = [this, name, opening](QObject* opened) {
        if (opening.hasProperty(QStringLiteral("inside")))
            planInside(name, opened, called(opening.property(QStringLiteral("inside")), opened));
        else
            closeDialog(opened);
    };
    return {name, open, [dialog]() -> QObject* { return findDialog(dialog); }, close};
}

/// The dialog stays open for what is inside.
void SelfTest::planInside(const QString& name, QObject* dialog, const QJSValue& inside)
{
    std::vector<Look> looks;
    for (const QJSValue& look : elementsOf(inside)) {
        const auto open = [this, look] { called(look.property(QStringLiteral("open"))); };
        const auto seen = [this, look] { return called(look.property(QStringLiteral("seen"))).toQObject(); };
        looks.push_back(
            {name + QLatin1Char('/') + look.property(QStringLiteral("name")).toString(), open, seen, {}});
    }
    const QPointer<QObject> opened(dialog);
    looks.push_back({name + QStringLiteral("/left"),
                     [opened] { closeDialog(opened); },
                     [dialog = dialog->objectName()]() -> QObject* {
                         return findDialog(dialog) ? nullptr : findPageItem(mainPage);
                     },
                     {},
                     false});
    m_runner.insert(looks);
}

/// What a function of the pages' answers; what it throws is told like a complaint of the pages.
QJSValue SelfTest::called(QJSValue function, QObject* argument)
{
    const QJSValueList arguments = argument ? QJSValueList{m_engine.toScriptValue(argument)} : QJSValueList();
    const QJSValue answer = function.call(arguments);
    if (answer.isError())
        m_runner.complain(answer.toString());
    return answer;
}

QString SelfTest::barringOf(const QString& folder)
{
    QVariant answer;
    QMetaObject::invokeMethod(m_opener.get(), "barring", Q_RETURN_ARG(QVariant, answer),
                              Q_ARG(QVariant, folder));
    return answer.toString();
}

QJSValue SelfTest::asked(const char* function, const QString& argument)
{
    QVariant answer;
    QMetaObject::invokeMethod(m_opener.get(), function, Q_RETURN_ARG(QVariant, answer),
                              Q_ARG(QVariant, argument));
    return answer.value<QJSValue>();
}

bool SelfTest::isShown(const QString& item) const { return findPageItem(item) != nullptr; }

QVariantList SelfTest::rows(const QString& item) const
{
    QVariantList found;
    const QQuickItem* view = findPageItem(item);
    const auto* model = view ? view->property("model").value<QAbstractItemModel*>() : nullptr;
    const QHash<int, QByteArray> roles = model ? model->roleNames() : QHash<int, QByteArray>();
    for (int i = 0; model && i < model->rowCount(); ++i) {
        QVariantMap row;
        for (auto role = roles.begin(); role != roles.end(); ++role)
            row.insert(QString::fromLatin1(role.value()), model->index(i, 0).data(role.key()));
        found.append(row);
    }
    return found;
}
