#include "RoomFixture.h"

#include "app/MainClass.h"
#include "app/SysInit.h"
#include "common/GlobalConfig.h"
#include "common/Sqlite.h"
#include "platform/LocalText.h"
#include "services/Baa00Service.h"
#include "vm/dialogs/LoginVm.h"
#include "vm/module1/Module1Register.h"

#include <QAbstractItemModel>
#include <QDir>
#include <QLibrary>
#include <QQmlComponent>

#include <fcntl.h>
#include <malloc.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

/// What the steps may use.
const char script[] = R"(
var rooms = '/bba01/getRoomList', emptyRooms = '/bba01/getEmptyRoomList', plans = '/bba01/getPlanListNew'
var detail = '/bba01/getRoomDetailNew', candidates = '/bba01/getCanMergeRoomList', cards = '/baa01/getHardCardDetail'
var kinds = '/bba01/getOccTypeList', lines = '/bba01/getRoomConsList', floors = '/bba01/getFloorSum'
var types = '/bba01/getRoomTypeSum', overruns = '/bba01/getOverTime', opening = '/bba01/openMassRoom'
// Lets the house tell so of a card; has the page look it up, too.
function tell(no, status = 0, roomNo = '', id = 'id-' + no) { f.answer(cards, {id, cardno: no, status, roomNo}, 1) }
function card(no, ...told) { tell(no, ...told); p.getCardInfo(no, '') }
// The record of a room with these cards; a page that reads such a room itself.
function room(numbers, status = 2, fields) {
    const cardlist = numbers.split(' ').filter(no => no).map(no => ({cardno: no, cardId: 'id-' + no}))
    return f.record(Object.assign({id: 'R1', roomNo: '101', status, cardlist}, fields))
}
function read(fields) { f.answer(detail, Object.assign({id: 'R1', status: 2}, fields), 1); return p.init('R0') }
// An answer that is a list of ids with a name each.
function ids(text) { return text.split(' ').map(id => ({id, vals: '%1:' + id, name: '%1:' + id, type_name: '%1:' + id})) }
function show(list, role) { return f.listed(p[list], role) }
function sent(path) { return JSON.stringify(f.sent(path)) }
// A group of rooms to merge; all of them.
function group(row, role = 259) { return p.pRoomModel.data(p.pRoomModel.index(row, 0), role) }
function groups() {
    const rows = [...Array(p.pRoomModel.rowCount()).keys()]
    return rows.map(row => group(row, 257) + ': ' + f.listed(group(row), 'tempName')).join(', ')
}
)";

} // namespace

RoomFixture::RoomFixture()
{
    mallopt(M_PERTURB, 0x5a); // who reads what is gone doesn't find it as it was
    QDir::setCurrent(m_folder.path());
    qputenv("XDG_CONFIG_HOME", m_folder.path().toUtf8());
    connectPrinter();
    Sqlite settings;
    if (!settings.open() || !settings.createTable())
        return;
    settings.addData("print", "前台");
    settings.addData("is_open_room_print", "1");
    settings.close();
    connect(MyMessage::getInstance(), &MyMessage::showMessageSignal, this,
            [this](const QString& text, const QString& type) { m_shown.append(type + "|" + text); });
    connect(MainClass::getInstance(), &MainClass::msgConfirmSignal, this,
            [this](const QString& title, const QString& text) {
                m_shown.append("question|" + title + "|" + text);
                MainClass::getInstance()->msgConfirmResult(m_answer);
            });
    m_isUp = logIn();
    if (!m_isUp)
        return;
    Module1Register().init();
    know("f", this);
    run(QString::fromUtf8(script));
}

RoomFixture::~RoomFixture()
{
    ::close(m_paper);
    QDir::setCurrent(QDir::rootPath());
}

/// A named pipe stands for the printer's device file.
void RoomFixture::connectPrinter()
{
    const QByteArray path = filePath("printer").toUtf8();
    if (::mkfifo(path.constData(), 0600) != 0)
        qFatal("no named pipe");
    m_paper = ::open(path.constData(), O_RDWR | O_NONBLOCK | O_CLOEXEC);
    qputenv("KV_PANEL_PRINTERS", "前台=" + path);
    // The terminal looks for the library beside its program; once it is there, it is found by name.
    QLibrary library(HouseProcess::programFolder() + "/POSDLL");
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
    config->setSecretKey("demo-secret-key-0001");
    const auto init = held(Baa00Service::getInstance()->getSysInitByAuthCode(config->secretKey()));
    if (!init->data())
        return false;
    applySysInit(init->data(), config);
    LoginVm login;
    login.setModCode("ROOMINFO_CTRL");
    return login.login("1001", "1001", {});
}

void RoomFixture::reset()
{
    m_house.reset();
    takeShown();
    takePrinted();
    m_answer = 1;
    GlobalConfig::getInstance()->leave_room_print_count = 0;
    dropRight({});
    know("store", GlobalConfig::getInstance()->sysConfig());
    know("user", GlobalConfig::getInstance()->userInfo());
    know("terminal", GlobalConfig::getInstance()->terminalInfo());
    run("terminal.isShowAmount = true; Object.assign(store, {openMulti: true, isNeedCard: true, usedRoomMod: 0,"
        "defaultTime: 2, isCleaning: false})");
}

QObject* RoomFixture::page(const QString& type, const QString& steps)
{
    run(steps.section("||", 0, -2));
    QQmlComponent component(&m_engine);
    component.setData(QStringLiteral("import %1 1.0\n%1 {}").arg(type).toUtf8(), {});
    m_page = component.create();
    if (!m_page)
        qFatal("%s", qPrintable(component.errorString()));
    know("p", m_page);
    run(steps.section("||", -1));
    return m_page;
}

void RoomFixture::know(const QString& name, QObject* object)
{
    QQmlEngine::setObjectOwnership(object, QQmlEngine::CppOwnership);
    m_engine.globalObject().setProperty(name, m_engine.newQObject(object));
}

QJSValue RoomFixture::run(const QString& steps)
{
    const QJSValue value = m_engine.evaluate(steps);
    if (value.isError())
        qFatal("%s: %s", qPrintable(steps), qPrintable(value.toString()));
    return value;
}

void RoomFixture::check(const QStringList& row)
{
    const std::unique_ptr<QObject> page(this->page(row.at(0), row.at(1)));
    QCOMPARE(run(row.at(2)).toString(), row.value(3));
    QCOMPARE(takeShown().join("; ").replace("\r", "\\r").replace("\n", "\\n"), row.value(4));
    QVERIFY(page->property("isEnabled").toBool());
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

QVector<QJsonObject> RoomFixture::allSent(const QString& path)
{
    QVector<QJsonObject> all;
    for (const QJsonValue& request : m_house.requests(path)) {
        all.append(request.toObject().value("json").toObject());
        for (const char* common : {"storeId", "compId", "deviceId", "soft_version", "operator", "creater", "ts",
                                   "nc", "tcode", "acode"})
            all.last().remove(QLatin1String(common));
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

void RoomFixture::dropRight(const QString& dropped)
{
    QSet<QString> rights;
    for (int code = 101; code <= 117; ++code)
        rights.insert(QStringLiteral("0%1").arg(code));
    rights.remove(dropped);
    GlobalConfig::getInstance()->setRights(rights);
}

QObject* RoomFixture::record(const QJsonValue& fields)
{
    answer("/bba01/getRoomDetailNew", fields, 1);
    m_record = RoomFloor::detail({});
    QQmlEngine::setObjectOwnership(m_record->data(), QQmlEngine::CppOwnership);
    return m_record->data();
}

QString RoomFixture::listed(QObject* list, const QString& role)
{
    const auto* model = qobject_cast<QAbstractItemModel*>(list);
    const auto value = [&](int row, const QByteArray& name) {
        return model->data(model->index(row, 0), model->roleNames().key(name));
    };
    QStringList rows;
    for (int row = 0; row < model->rowCount(); ++row)
        rows.append(value(row, role.toLatin1()).toString() + (value(row, "isChecked").toBool() ? "*" : ""));
    return rows.join(' ');
}

QString RoomFixture::takePrinted()
{
    QByteArray taken;
    char buffer[4096];
    for (ssize_t size = 0; (size = ::read(m_paper, buffer, sizeof buffer)) > 0;)
        taken.append(buffer, static_cast<int>(size));
    return LocalText::decode(taken);
}
