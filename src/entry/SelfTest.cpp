#include "entry/SelfTest.h"

#include "dto/room/RoomStatus.h"
#include "entry/PageItems.h"
#include "vm/dialogs/LoginVm.h"

#include <QAbstractItemModel>
#include <QCoreApplication>
#include <QJSValue>
#include <QPointer>
#include <QQmlApplicationEngine>
#include <QQmlComponent>
#include <QQmlContext>
#include <QQuickItem>

namespace {

/// A board begins to fetch with its first tick, half a second after it stands.
constexpr int boardTurnMs = 1500;

const QString mainPage = QStringLiteral("mainPage");

std::function<QObject*()> itemNamed(const QString& name)
{
    return [name]() -> QObject* { return findPageItem(name); };
}

void closeDialog(QObject* dialog) { QMetaObject::invokeMethod(dialog, "finish", Q_ARG(QVariant, false)); }

/// The id of the board's first room in this state that is neither reserved nor a guest room; empty without one.
QString roomIn(int status)
{
    const QQuickItem* board = findPageItem(QStringLiteral("roomGrid"));
    const auto* rooms = board ? board->property("model").value<QAbstractItemModel*>() : nullptr;
    if (!rooms)
        return {};
    QHash<QString, int> roles;
    const QHash<int, QByteArray> names = rooms->roleNames();
    for (auto it = names.constBegin(); it != names.constEnd(); ++it)
        roles.insert(QString::fromLatin1(it.value()), it.key());
    for (int row = 0; row < rooms->rowCount(); ++row) {
        const auto value = [&](const char* role) {
            return rooms->index(row, 0).data(roles.value(QLatin1String(role)));
        };
        constexpr int asGuestRoom = 2;
        if (value("status").toInt() == status && value("openType").toInt() != asGuestRoom &&
            !value("roomLock").toBool())
            return value("roomId").toString();
    }
    return {};
}

/// What a property of a page holds as a JavaScript object: names with their texts.
QVariantMap mapOf(const QObject* page, const char* property)
{
    return page->property(property).value<QJSValue>().toVariant().toMap();
}

} // namespace

SelfTest::SelfTest(QQmlApplicationEngine& engine, const QString& staffNo, const QString& password,
                   const QString& pictureFolder, QObject* parent)
    : QObject(parent), m_staffNo(staffNo), m_password(password), m_looks(engine, pictureFolder)
{
    QQmlComponent opener(&engine, QUrl(QStringLiteral("qrc:/qml/SelfTest.qml")));
    m_opener.reset(opener.create(qmlContext(engine.rootObjects().value(0))));
    // Without a main page there are no modules, but there are dialogs.
    m_looks.append({mainPage, [] {}, itemNamed(mainPage), [this](QObject*) { planLogin(); }});
    if (m_opener)
        planDialogs();
    else
        m_looks.append({opener.errorString(), [] {}, [] { return nullptr; }, {}});
    connect(&m_looks, &Looks::finished, this,
            [](int failures) { QCoreApplication::exit(failures == 0 ? 0 : 1); });
    m_looks.start();
}

SelfTest::~SelfTest() = default;

void SelfTest::planDialogs()
{
    QVariant names;
    QMetaObject::invokeMethod(m_opener.get(), "dialogs", Q_RETURN_ARG(QVariant, names));
    const QVariantList found = names.value<QJSValue>().toVariant().toList();
    for (const QVariant& dialog : found) {
        const QString name = dialog.toString();
        m_looks.append({name,
                        [this, name] {
                            m_looks.setCountsMessages(true); // whatever became of the modules before
                            openDialog(name, {});
                        },
                        [name]() -> QObject* { return findDialog(name); }, closeDialog});
    }
}

void SelfTest::planLogin()
{
    planModules();
    if (m_staffNo.isEmpty()) {
        m_looks.report(QStringLiteral("--      nobody is logged in"));
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
    m_looks.insert({{QStringLiteral("login"), logIn, mainPageOnceIn, {}, false}});
}

void SelfTest::planModules()
{
    std::vector<Look> looks;
    const QVariantMap pages = mapOf(findPageItem(mainPage), "pages");
    for (const QString& module : pages.keys() + QStringList{QStringLiteral("Module9")}) {
        const auto leave = [this, module](QObject*) {
            if (module == QLatin1String("Module1"))
                planRooms();
            else
                QMetaObject::invokeMethod(findPageItem(mainPage), "leaveModule");
        };
        looks.push_back({module,
                         [this, module] {
                             m_looks.setCountsMessages(m_isLoggedIn);
                             QMetaObject::invokeMethod(findPageItem(mainPage), "openModule",
                                                       Q_ARG(QVariant, module), Q_ARG(QVariant, QVariantMap()));
                         },
                         itemNamed(module), leave, true, boardTurnMs});
    }
    m_looks.insert(looks);
}

/// With the board on the screen.
void SelfTest::planRooms()
{
    std::vector<Look> looks;
    const std::tuple<const char*, int, const char*> wanted[] = {{"openRoomDlg", RoomEmpty, "empty"},
                                                                {"roomDetailDlg", RoomMassage, "massage"},
                                                                {"roomDetailDlg", RoomRest, "rest"}};
    for (const auto& [dialog, status, label] : wanted) {
        if (m_isLoggedIn && roomIn(status).isEmpty())
            m_looks.report(QStringLiteral("--      %1/%2: the board has no such room").arg(dialog, label));
        else
            looks.push_back(roomDialog(QLatin1String(dialog), status, QLatin1String(label)));
    }
    looks.push_back({QStringLiteral("Module1/left"),
                     [] { QMetaObject::invokeMethod(findPageItem(mainPage), "leaveModule"); },
                     itemNamed(QStringLiteral("tile_ROOMINFO_CTRL")),
                     {},
                     false});
    m_looks.insert(looks);
}

Look SelfTest::roomDialog(const QString& dialog, int status, const QString& label)
{
    const QString name = dialog + QLatin1Char('/') + label;
    return {name,
            [this, dialog, status] {
                openDialog(dialog, {{QStringLiteral("roomId"), roomIn(status)}});
            },
            [dialog]() -> QObject* { return findDialog(dialog); },
            [this, name](QObject* opened) { planRoomPages(opened, name); }};
}

/// The pages behind the menu that this room has, or all of them where it couldn't be asked for; the dialog
/// stays open for them.
void SelfTest::planRoomPages(QObject* dialog, const QString& label)
{
    std::vector<Look> looks;
    const QPointer<QObject> opened(dialog);
    const QVariantMap pages = mapOf(dialog, "pages");
    for (auto page = pages.constBegin(); page != pages.constEnd(); ++page) {
        const QString code = page.key();
        if (m_isLoggedIn && !findPageItem(QStringLiteral("menu_") + code))
            continue;
        const QString file = page.value().toString() + QLatin1String(".qml");
        looks.push_back({label + QLatin1Char('/') + code,
                         [opened, code] { QMetaObject::invokeMethod(opened, "choose", Q_ARG(QVariant, code)); },
                         [file]() -> QObject* {
                             const QQuickItem* loader = findPageItem(QStringLiteral("pageLoader"));
                             const bool isLoaded = loader && loader->property("source").toString().endsWith(
                                                                 QLatin1Char('/') + file);
                             return isLoaded ? loader->property("item").value<QObject*>() : nullptr;
                         },
                         {}});
    }
    looks.push_back({label + QStringLiteral("/left"),
                     [opened] { closeDialog(opened); },
                     itemNamed(QStringLiteral("roomGrid")),
                     {},
                     false});
    m_looks.insert(looks);
}

void SelfTest::openDialog(const QString& name, const QVariantMap& properties)
{
    QMetaObject::invokeMethod(m_opener.get(), "open", Q_ARG(QVariant, name), Q_ARG(QVariant, properties));
}
