#include "RoomFixture.h"

#include "app/MainClass.h"
#include "app/SysInit.h"
#include "common/GlobalConfig.h"
#include "common/Sqlite.h"
#include "platform/LocalText.h"
#include "services/Baa00Service.h"
#include "vm/dialogs/LoginVm.h"
#include "vm/module1/Module1Register.h"

#include <QDir>
#include <QFile>
#include <QJsonDocument>
#include <QLibrary>
#include <QQmlComponent>
#include <QTimer>

#include <fcntl.h>
#include <malloc.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

/// What the steps may use besides p, and f, which is the fixture.
const char script[] = R"(
function tell(no, status, roomNo) {
    const card = {id: 'id-' + no, cardno: no, status: status || 0, roomNo: roomNo || ''}
    f.answer('/baa01/getHardCardDetail', card, 1)
}
function card(no, status, roomNo) { tell(no, status, roomNo); p.getCardInfo(no, '') }
function room(numbers, status, fields) {
    return f.madeUpRoom(numbers.split(' '), Object.assign({status: status || 2}, fields))
}
function group(row) { return p.pRoomModel.data(p.pRoomModel.index(row, 0), /* roomModel */ 259) }
)";

} // namespace

RoomFixture::RoomFixture() : m_before(QDir::currentPath())
{
    mallopt(M_PERTURB, 0x5a); // who reads what is gone doesn't find it as it was
    QDir::setCurrent(m_folder.path());
    qputenv("XDG_CONFIG_HOME", m_folder.path().toUtf8());
    connectPrinter();
    Module1Register().init();
    QQmlEngine::setObjectOwnership(this, QQmlEngine::CppOwnership);
    m_engine.globalObject().setProperty("f", m_engine.newQObject(this));
    run(QString::fromUtf8(script));
    Sqlite settings;
    if (!settings.open() || !settings.createTable())
        return;
    settings.addData(QStringLiteral("print"), QStringLiteral("前台"));
    settings.addData(QStringLiteral("is_open_room_print"), QStringLiteral("1"));
    settings.close();
    connect(MyMessage::getInstance(), &MyMessage::showMessageSignal, this,
            [this](const QString& text, const QString& type) { m_shown.append(type + "|" + text); });
    connect(MainClass::getInstance(), &MainClass::msgConfirmSignal, this,
            [this](const QString& title, const QString& text) {
                m_shown.append("question|" + title + "|" + text);
                MainClass::getInstance()->msgConfirmResult(m_answer);
            });
    m_isUp = logIn();
    takeShown();
    SysConfigDto* store = GlobalConfig::getInstance()->sysConfig();
    QQmlEngine::setObjectOwnership(store, QQmlEngine::CppOwnership);
    m_engine.globalObject().setProperty("store", m_engine.newQObject(store));
}

RoomFixture::~RoomFixture()
{
    ::close(m_paper);
    QDir::setCurrent(m_before);
}

/// A named pipe stands for the printer's device file.
void RoomFixture::connectPrinter()
{
    const QByteArray path = QFile::encodeName(filePath(QStringLiteral("printer")));
    if (::mkfifo(path.constData(), 0600) != 0)
        qFatal("no named pipe");
    m_paper = ::open(path.constData(), O_RDWR | O_NONBLOCK | O_CLOEXEC);
    qputenv("KV_PANEL_PRINTERS", QByteArrayLiteral("前台=") + path);
    // The terminal looks for the library beside its program; once it is there, it is found by name.
    QLibrary library(HouseProcess::programFolder() + QStringLiteral("/POSDLL"));
    if (!library.load())
        qWarning("%s", qPrintable(library.errorString()));
}

bool RoomFixture::logIn()
{
    GlobalConfig* config = GlobalConfig::getInstance();
    if (!m_house.isReady() || !config->initLibcurl())
        return false;
    config->setApiUrl(m_house.url());
    config->setApiUrls({m_house.url()});
    config->setSecretKey(QStringLiteral("demo-secret-key-0001"));
    const auto init = held(Baa00Service::getInstance()->getSysInitByAuthCode(config->secretKey()));
    if (!init->data())
        return false;
    applySysInit(init->data(), config);
    LoginVm login;
    login.setModCode(QStringLiteral("ROOMINFO_CTRL"));
    return login.login(QStringLiteral("1001"), QStringLiteral("1001"), {});
}

void RoomFixture::reset()
{
    m_house.reset();
    takeShown();
    takePrinted();
    m_answer = 1;
    GlobalConfig* config = GlobalConfig::getInstance();
    config->leave_room_print_count = 0;
    QSet<QString> rights;
    for (int code = 101; code <= 117; ++code)
        rights.insert(QStringLiteral("0%1").arg(code));
    config->setRights(rights);
    SysConfigDto* store = config->sysConfig();
    store->set_openMulti(true);
    store->set_isNeedCard(true);
    store->set_usedRoomMod(0);
    store->set_defaultTime(2);
    store->set_isCleaning(false);
}

QObject* RoomFixture::page(const QString& type, const QString& steps)
{
    QQmlComponent component(&m_engine);
    component.setData(QStringLiteral("import %1 1.0\n%1 {}").arg(type).toUtf8(), {});
    m_page = component.create();
    if (!m_page)
        qFatal("%s", qPrintable(component.errorString()));
    m_engine.globalObject().setProperty("p", m_engine.newQObject(m_page));
    run(steps);
    return m_page;
}

QJSValue RoomFixture::run(const QString& steps)
{
    const QJSValue value = m_engine.evaluate(steps);
    if (value.isError())
        qFatal("%s: %s", qPrintable(steps), qPrintable(value.toString()));
    return value;
}

QStringList RoomFixture::takeShown()
{
    QStringList taken;
    taken.swap(m_shown);
    return taken;
}

QVector<QJsonObject> RoomFixture::allSent(const QString& path)
{
    QVector<QJsonObject> all;
    for (const QJsonValue& request : m_house.requests(path)) {
        QJsonObject fields = request.toObject().value(QStringLiteral("json")).toObject();
        for (const char* common : {"storeId", "compId", "deviceId", "soft_version", "operator", "creater", "ts",
                                   "nc", "tcode", "acode"})
            fields.remove(QLatin1String(common));
        all.append(fields);
    }
    return all;
}

QJsonObject RoomFixture::sent(const QString& path)
{
    const QVector<QJsonObject> all = allSent(path);
    return all.isEmpty() ? QJsonObject{{"never", "sent"}} : all.last();
}

void RoomFixture::answer(const QString& path, const QJsonValue& data, int count)
{
    m_house.answer(path, QJsonObject{{"code", "200"}, {"msg", ""}, {"data", data}}, count);
}

void RoomFixture::refuse(const QString& path, const QString& text, int count)
{
    m_house.answer(path, QJsonObject{{"code", "TEST_ERR"}, {"msg", text}}, count);
}

void RoomFixture::closeDuring(const QString& path)
{
    const auto close = [this] { delete m_page; };
    if (path.isEmpty()) {
        connect(MainClass::getInstance(), &MainClass::msgConfirmSignal, m_page, close);
        return;
    }
    m_house.fault(path, "delay", 100, 1);
    QTimer::singleShot(30, m_page, close);
}

QObject* RoomFixture::madeUpRoom(const QStringList& cardNos, QJsonObject fields)
{
    QJsonArray cards;
    for (const QString& cardNo : cardNos) {
        if (!cardNo.isEmpty())
            cards.append(QJsonObject{{"cardno", cardNo}, {"cardId", "id-" + cardNo}});
    }
    fields.insert("id", "R1");
    fields.insert("roomNo", "101");
    fields.insert("cardlist", cards);
    answer(QStringLiteral("/bba01/getRoomDetailNew"), fields, 1);
    m_record = RoomFloor::detail({});
    QQmlEngine::setObjectOwnership(m_record->data(), QQmlEngine::CppOwnership);
    return m_record->data();
}

QString RoomFixture::takePrinted()
{
    QByteArray taken;
    char buffer[4096];
    for (ssize_t size = 0; (size = ::read(m_paper, buffer, sizeof buffer)) > 0;)
        taken.append(buffer, static_cast<int>(size));
    return LocalText::decode(taken);
}
