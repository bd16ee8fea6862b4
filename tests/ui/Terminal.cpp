#include "Terminal.h"

#include "common/GlobalConfig.h"
#include "common/MyMessage.h"
#include "common/Sqlite.h"
#include "entry/Pages.h"
#include "inspect/ScreenItems.h"

#include <QDir>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QFile>
#include <QGuiApplication>
#include <QJsonDocument>
#include <QQmlComponent>
#include <QQmlContext>
#include <QQuickItem>
#include <QQuickWindow>
#include <QRegularExpression>
#include <QScreen>
#include <QtTest>

#include <cstdlib>
#include <fcntl.h>
#include <unistd.h>

namespace {

constexpr int tickMs = 10;
constexpr int stepLimitTicks = 1000;
constexpr int settledTicks = 4; // each of tickMs

} // namespace

void addRows(const char* table)
{
    QTest::addColumn<QStringList>("row");
    const QString text = QString::fromUtf8(table).replace(QRegularExpression(QStringLiteral("\n +")), " ");
    for (const QString& line : text.split(QLatin1Char('\n'), Qt::SkipEmptyParts)) {
        QStringList row = line.split(QStringLiteral(" ;"));
        for (QString& field : row)
            field = field.trimmed();
        QTest::addRow("%s %s", qPrintable(row.at(0)), qPrintable(row.at(1).left(12))) << row;
    }
}

QString unlike(const QJsonObject& answer, const QString& expectedJson)
{
    const QJsonObject expected = QJsonDocument::fromJson(expectedJson.toUtf8()).object();
    QJsonObject found;
    for (auto field = expected.begin(); field != expected.end(); ++field) {
        if (answer.value(field.key()) != field.value())
            found.insert(field.key(), answer.value(field.key()));
    }
    return found.isEmpty() ? QString() : QJsonDocument(found).toJson(QJsonDocument::Compact);
}

Terminal::Terminal(const std::function<void(HouseProcess&)>& spoil)
{
    QDir::setCurrent(m_folder.path());
    qputenv("XDG_CONFIG_HOME", m_folder.path().toUtf8());
    QFile identity(m_folder.filePath(QStringLiteral("KV_PANEL_V2.ini")));
    if (identity.open(QIODevice::WriteOnly))
        identity.write("authCode=KV-DEMO-0001\nsecretKey=demo-secret-key-0001\n");
    identity.close();

    GlobalConfig* config = GlobalConfig::getInstance();
    config->setApiUrls({m_house.url()});
    Sqlite settings;
    if (!settings.open() || !settings.createTable() || !config->initLibcurl())
        return;
    connectReader();
    settings.addData(QStringLiteral("staff_device_com"), QStringLiteral("COM1"));
    settings.close();
    QObject::connect(
        MyMessage::getInstance(), &MyMessage::showMessageSignal, &m_timer,
        [this](const QString& text, const QString& type) { m_messages.append(type + "|" + text); });
    QObject::connect(&m_timer, &QTimer::timeout, &m_timer, [this] { tick(); });

    if (spoil)
        spoil(m_house);
    registerSingletons();
    registerTypes();
    m_engine.reset(new QQmlApplicationEngine);
    QObject::connect(m_engine.get(), &QQmlEngine::warnings, &m_timer, [this](const QList<QQmlError>& errors) {
        for (const QQmlError& error : errors)
            m_messages.append("page|" + error.toString());
    });
    loadPages(*m_engine, HouseProcess::programFolder());
    // The offscreen screen is small; the pages are made for a large one.
    for (QWindow* window : QGuiApplication::topLevelWindows()) {
        if (window->objectName() == QLatin1String("root")) {
            window->setVisibility(QWindow::Windowed);
            // A picture shows the whole screen.
            const bool isForPictures = qEnvironmentVariableIsSet("KV_PICTURES");
            window->setPosition(0, 0);
            window->resize(isForPictures ? window->screen()->size() : QSize(1366, 768));
        }
    }
    QQmlComponent page(m_engine.get());
    page.setData("import QtQuick 2.15\nimport 'qrc:/qml/DlgManager.js' as Dlg\nimport 'qrc:/js/Ask.js' as Ask\n"
                 "QtObject {\n"
                 "function open(name, properties) { return Dlg.showDialog(name, properties) }\n"
                 "function ask(name, argument) { return Ask[name](argument) }\n"
                 "}\n",
                 QUrl(QStringLiteral("qrc:/TestPage.qml")));
    m_page.reset(page.create(qmlContext(m_engine->rootObjects().first())));
    if (spoil)
        return;
    until("the main page", [config] { return config->iSysStatus() == 2; }).walk("+mainPage").run();
}

Terminal::~Terminal()
{
    m_page.reset();
    m_engine.reset();
    ::close(m_readerLine);
    QDir::setCurrent(QDir::rootPath());
}

/// A pseudo terminal stands for the serial line: the program opens one end by name, the test writes into the
/// other.
void Terminal::connectReader()
{
    m_readerLine = ::posix_openpt(O_RDWR | O_NOCTTY);
    if (m_readerLine < 0 || ::grantpt(m_readerLine) != 0 || ::unlockpt(m_readerLine) != 0)
        qFatal("no pseudo terminal");
    qputenv("KV_PANEL_COM1", ::ptsname(m_readerLine));
}

/// The same card again was lifted meanwhile, or it would be one that stays on the reader.
bool Terminal::writeCard(const QString& number)
{
    constexpr int liftMs = 1100;
    if (!takesInput() || (number == m_card && !m_sinceCard.hasExpired(liftMs)))
        return false;
    m_card = number;
    m_sinceCard.start();
    const QByteArray burst = number.toLatin1() + "\r\n";
    return ::write(m_readerLine, burst.constData(), static_cast<size_t>(burst.size())) == burst.size();
}

bool Terminal::isUp() const { return GlobalConfig::getInstance()->iSysStatus() == 2; }

/// A person taps what stands still: a page that just appeared is laid out with its next frame.
bool Terminal::isSettled(QQuickItem* target)
{
    const QRectF place = target->mapRectToScene(QRectF(0, 0, target->width(), target->height()));
    m_settledTicks = target == m_target && place == m_targetPlace ? m_settledTicks + 1 : 0;
    m_target = target;
    m_targetPlace = place;
    return m_settledTicks >= settledTicks;
}

/// What a person would touch now.
QQuickItem* Terminal::readyItem(const QString& name)
{
    QQuickItem* target = item(name);
    if (!target || !target->isEnabled() || !target->window()->isExposed() || !takesInput() ||
        !isSettled(target))
        return nullptr;
    m_target = nullptr;
    return target;
}

bool Terminal::tapNow(const QString& name)
{
    QQuickItem* target = readyItem(name);
    if (!target)
        return false;
    QTest::mouseClick(target->window(), Qt::LeftButton, {}, m_targetPlace.center().toPoint());
    return true;
}

QQuickItem* Terminal::item(const QString& name) const { return findPageItem(name); }

QVariant Terminal::property(const QString& name, const char* property) const
{
    const QQuickItem* found = item(name);
    return found ? found->property(property) : QVariant();
}

QStringList Terminal::takeMessages()
{
    QStringList taken;
    taken.swap(m_messages);
    return taken;
}

QString Terminal::run()
{
    m_failure.clear();
    m_next = 0;
    m_waitedTicks = 0;
    m_timer.start(tickMs);
    QEventLoop loop;
    QTimer watch;
    // The steps may end inside dialogs that are still open: the road has to close what it opened.
    QObject::connect(&watch, &QTimer::timeout, &loop, [&] {
        if (m_next >= m_steps.size() || !m_failure.isEmpty())
            loop.quit();
    });
    watch.start(tickMs);
    loop.exec();
    m_timer.stop();
    m_steps.clear();
    return m_failure;
}

void Terminal::tick()
{
    if (m_next >= m_steps.size())
        return;
    // A step may run an event loop of its own; the next tick must not come to it again.
    const size_t current = m_next;
    static bool isBusy = false;
    if (isBusy)
        return;
    isBusy = true;
    const bool done = m_steps[current].tryIt();
    isBusy = false;
    if (done) {
        m_next = current + 1;
        m_waitedTicks = 0;
    } else if (++m_waitedTicks > stepLimitTicks) {
        m_failure = QStringLiteral("step %1: %2; messages: %3")
                        .arg(current)
                        .arg(m_steps[current].what, m_messages.join(QLatin1Char(' ')));
        m_next = m_steps.size();
        closeEverything();
    }
}

void Terminal::closeEverything()
{
    // Each dialog's wait ends with its visibility.
    for (QObject* popup : m_engine->rootObjects().first()->findChildren<QObject*>()) {
        if (popup->property("dlgResult").isValid())
            popup->setProperty("visible", false);
    }
}
