// The call queue: minutes that go up in a long list, against a model reset; a thousand messages a second for
// ten seconds; a hundred announcements at once.

#include "LiveTerminal.h"
#include "Measure.h"

#include "vm/module4/QueneWaitModel.h"

#include <QElapsedTimer>
#include <QJsonArray>
#include <QQmlComponent>
#include <QQmlContext>
#include <QQmlEngine>
#include <QQuickItem>
#include <QQuickView>

#include <thread>

namespace {

constexpr int rounds = 60;
constexpr int waiting = 500;
constexpr int seconds = 10;
constexpr int portionsPerSecond = 20;
constexpr int messagesPerPortion = 50;
constexpr int announcements = 100;

/// A list of guests who all wait so many minutes longer than before.
void fill(Array<QueneCallDto*>& entries, int minutes)
{
    for (int i = 0; i < waiting; ++i) {
        auto* entry = new QueneCallDto;
        entry->set_id(QString::number(i));
        entry->set_cardNo(QString::number(1000 + i));
        entry->set_minuteNum(minutes + i);
        entry->set_statusVal(QStringLiteral("等待中"));
        entries.append(entry);
    }
}

/// The waiting list as the page shows it.
class WaitingList
{
public:
    WaitingList()
    {
        loadFonts(*m_view.engine(), QCoreApplication::applicationDirPath());
        m_view.setResizeMode(QQuickView::SizeRootObjectToView);
        QQmlComponent list(m_view.engine());
        list.setData("import QtQuick 2.15\nimport 'qrc:/qml/Module4'\n"
                     "ListView { spacing: 4; delegate: WaitingRow { width: 450; height: 134; canCall: true } }",
                     QUrl());
        m_list = qobject_cast<QQuickItem*>(list.create());
        m_view.setContent(QUrl(), nullptr, m_list);
        m_list->setProperty("model", QVariant::fromValue(&m_model));
        m_view.resize(450, 1000);
        m_view.show();
        QGuiApplication::processEvents();
    }

    void show(const Array<QueneCallDto*>& entries, bool isReset)
    {
        if (isReset)
            reset(entries);
        else
            m_model.update(entries);
        // Polishes, paints and hands over the frame before it returns.
        QEvent update(QEvent::UpdateRequest);
        QCoreApplication::sendEvent(&m_view, &update);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }

    QString firstMinutes() const
    {
        QQuickItem* row = nullptr;
        QMetaObject::invokeMethod(m_list, "itemAtIndex", Q_RETURN_ARG(QQuickItem*, row), Q_ARG(int, 0));
        const auto* text = row ? row->findChild<QQuickItem*>(QStringLiteral("waitTime_0")) : nullptr;
        return text ? text->property("text").toString() : QString();
    }

private:
    void reset(const Array<QueneCallDto*>& entries)
    {
        QVector<quene_wait_struct> rows;
        for (const QueneCallDto* entry : entries)
            rows.append({entry->id(), entry->cardNo(), entry->minuteNum(), entry->status(), entry->statusVal(),
                         entry->callNum(), entry->uptime(), 0});
        m_model.replace(rows);
    }

    QueneWaitModel m_model;
    QQuickView m_view;
    QQuickItem* m_list;
};

/// False when the list didn't show them.
bool measureMinutes()
{
    WaitingList inPlace;
    WaitingList byReset;
    QueneCallListDto lists[2];
    std::vector<double> base, measured;
    for (int phase : {0, 1}) {
        Array<QueneCallDto*> entries;
        fill(entries, phase);
        lists[phase].set_waitCallInfos(entries);
    }
    for (int i = 0; i < rounds; ++i) {
        const Array<QueneCallDto*>& entries = lists[i % 2].waitCallInfos();
        const double resetUs = Measure::microseconds([&] { byReset.show(entries, true); });
        const double inPlaceUs = Measure::microseconds([&] { inPlace.show(entries, false); });
        QGuiApplication::processEvents();
        if (i < 4)
            continue; // first frames fill caches
        base.push_back(resetUs / 1000);
        measured.push_back(inPlaceUs / 1000);
    }
    Measure::printRatio("queue of 500, all minutes changed: in place / reset", "ms", Measure::median(base),
                        Measure::median(measured), 0.4);
    return inPlace.firstMinutes() == QStringLiteral("已等: 1 分") &&
           byReset.firstMinutes() == inPlace.firstMinutes();
}

/// The station's page with something that moves on it, so that there is a frame to paint each time one can be.
class MovingStation
{
public:
    MovingStation()
    {
        loadFonts(*m_view.engine(), QCoreApplication::applicationDirPath());
        m_view.rootContext()->setContextProperty("root", m_view.contentItem());
        m_view.setResizeMode(QQuickView::SizeRootObjectToView);
        m_view.setSource(QUrl("qrc:/qml/Module4/Module4.qml"));
        m_view.resize(1920, 1080);
        QQmlComponent mover(m_view.engine());
        mover.setData("import QtQuick 2.15\nRectangle { width: 40; height: 40; color: 'red'\n"
                      "NumberAnimation on x { from: 0; to: 400; duration: 1000; loops: Animation.Infinite } }",
                      QUrl());
        qobject_cast<QQuickItem*>(mover.create())->setParentItem(m_view.rootObject());
        QObject::connect(&m_view, &QQuickWindow::frameSwapped, &m_view, [this] {
            m_longestMs = qMax(m_longestMs, m_sinceFrame.nsecsElapsed() / 1e6);
            m_sinceFrame.restart();
        });
        m_view.show();
    }

    /// The longest time from one frame to the next.
    double longestFrameMs(int durationMs)
    {
        m_longestMs = 0;
        m_sinceFrame.start();
        QEventLoop loop;
        QTimer::singleShot(durationMs, &loop, &QEventLoop::quit);
        loop.exec();
        return m_longestMs;
    }

private:
    QQuickView m_view;
    QElapsedTimer m_sinceFrame;
    double m_longestMs = 0;
};

void publishFor(BrokerProcess& broker, const QString& topic)
{
    QByteArrayList portion;
    for (int i = 0; i < messagesPerPortion; ++i)
        portion.append("x");
    auto next = std::chrono::steady_clock::now();
    for (int i = 0; i < seconds * portionsPerSecond; ++i) {
        broker.publish(topic, portion);
        next += std::chrono::milliseconds(1000 / portionsPerSecond);
        std::this_thread::sleep_until(next);
    }
}

/// False when what was to be measured didn't happen.
bool measureBursts(RoomFixture& terminal, BrokerProcess& broker)
{
    const GlobalConfig* config = GlobalConfig::getInstance();
    MovingStation station;
    station.longestFrameMs(2000); // first fetch and first frames
    terminal.house().reset();
    std::thread publisher(publishFor, std::ref(broker), config->MQTT_HARDCARDSCALLSTATUS() + config->storeId());
    station.longestFrameMs(seconds * 1000);
    publisher.join();
    station.longestFrameMs(1000); // the last mark is served
    const int fetches = terminal.house().seen(QStringLiteral("/bca01/getHardCardCallList"));
    Measure::printRatio("fetches for 1,000 status messages a second / ticks of 500 ms", "", seconds * 2 + 2,
                        fetches, 1);

    terminal.answer(QStringLiteral("/bca01/getMqttCallInfoDataByKey"),
                    QJsonArray{QJsonObject{{"cardNo", "8001"}, {"hardCardType", "1"}}});
    QByteArrayList keys;
    for (int i = 0; i < announcements; ++i)
        keys.append("CALL" + QByteArray::number(i));
    broker.publish(config->MQTT_HARDCARDSCALLDATA() + config->storeId(), keys);
    const double longestMs = station.longestFrameMs(3000);
    const int announced = terminal.house().seen(QStringLiteral("/bca01/getMqttCallInfoDataByKey"));
    Measure::printRatio("longest frame while 100 calls are announced / 50 ms", "ms", 50, longestMs, 1);
    Measure::printRatio("announced / calls", "", announcements, announced, 1);
    return fetches >= seconds && announced == announcements;
}

} // namespace

int main(int argc, char** argv)
{
    LiveTerminal live(argc, argv);
    if (!live.isUp())
        return 1;
    const bool areShown = measureMinutes();
    if (measureBursts(live.terminal, live.broker) && areShown)
        return 0;
    std::fprintf(stderr, "what was to be measured didn't happen\n");
    return 1;
}
