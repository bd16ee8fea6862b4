#include "RoomFixture.h"

#include "app/MainClass.h"
#include "app/SysInit.h"
#include "common/GlobalConfig.h"
#include "common/Sqlite.h"
#include "platform/LocalText.h"
#include "services/Baa00Service.h"
#include "vm/dialogs/LoginVm.h"

#include <QDir>
#include <QFile>
#include <QJsonDocument>
#include <QLibrary>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

const QStringList& commonFields()
{
    static const QStringList fields = {"storeId", "compId", "deviceId", "soft_version", "operator",
                                       "creater", "ts",     "nc",       "tcode",        "acode"};
    return fields;
}

} // namespace

RoomFixture::RoomFixture() : m_before(QDir::currentPath())
{
    QDir::setCurrent(m_folder.path());
    qputenv("XDG_CONFIG_HOME", m_folder.path().toUtf8());
    connectPrinter();
    Sqlite settings;
    if (!settings.open() || !settings.createTable())
        return;
    settings.addData(QStringLiteral("print"), QStringLiteral("前台"));
    settings.addData(QStringLiteral("is_open_room_print"), QStringLiteral("1"));
    settings.close();
    QObject::connect(MyMessage::getInstance(), &MyMessage::showMessageSignal, &m_listener,
                     [this](const QString& text, const QString& type) { m_shown.append(type + "|" + text); });
    QObject::connect(MainClass::getInstance(), &MainClass::msgConfirmSignal, &m_listener,
                     [this](const QString& title, const QString& text) {
                         m_shown.append("question|" + title + "|" + text);
                         MainClass::getInstance()->msgConfirmResult(m_answer);
                     });
    m_isUp = logIn();
    takeShown();
}

RoomFixture::~RoomFixture()
{
    ::close(m_paper);
    QDir::setCurrent(m_before);
}

/// A named pipe stands for the printer's device file.
void RoomFixture::connectPrinter()
{
    const QByteArray path = QFile::encodeName(m_folder.filePath(QStringLiteral("printer")));
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
        for (const QString& common : commonFields())
            fields.remove(common);
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

Reply<GetRoomDetailNew> RoomFixture::madeUpDetail(QJsonObject fields, const QStringList& cardNos)
{
    QJsonArray cards;
    for (const QString& cardNo : cardNos)
        cards.append(QJsonObject{{"cardno", cardNo}, {"cardId", "id-" + cardNo}});
    fields.insert("cardlist", cards);
    answer(QStringLiteral("/bba01/getRoomDetailNew"), fields, 1);
    return RoomFloor::detail({});
}

QString RoomFixture::takePrinted()
{
    QByteArray taken;
    char buffer[4096];
    for (ssize_t size = 0; (size = ::read(m_paper, buffer, sizeof buffer)) > 0;)
        taken.append(buffer, static_cast<int>(size));
    return LocalText::decode(taken);
}
