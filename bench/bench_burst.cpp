// The room board while the broker sends a thousand messages a second for ten seconds: time between frames
// against the quiet board, and what becomes of the messages.

#include "LiveTerminal.h"
#include "Measure.h"

#include <QEventLoop>
#include <QQmlComponent>
#include <QQmlEngine>
#include <QQuickItem>
#include <QQuickView>
#include <QTimer>

#include <algorithm>
#include <iterator>
#include <thread>

namespace {

constexpr int seconds = 10;
constexpr int messagesPerSecond = 1000;
constexpr int portionsPerSecond = 20;

/// False, with a word on it, when a number is below what a run that worked has.
bool isAtLeast(const char* what, double least, double value)
{
    if (value < least)
        std::fprintf(stderr, "%s: %g, less than the %g of a run that worked\n", what, value, least);
    return value >= least;
}

/// The board's page with something that moves on it, so that there is a frame to paint each time one can be.
class MovingBoard
{
public:
    MovingBoard()
    {
        loadFonts(*m_view.engine(), QCoreApplication::applicationDirPath());
        m_view.setResizeMode(QQuickView::SizeRootObjectToView);
        m_view.setSource(QUrl("qrc:/qml/Module1/Module1.qml"));
        m_view.resize(1920, 1080);
        QQmlComponent mover(m_view.engine());
        mover.setData("import QtQuick 2.15\nRectangle { width: 40; height: 40; color: 'red'\n"
                      "NumberAnimation on x { from: 0; to: 400; duration: 1000; loops: Animation.Infinite } }",
                      QUrl());
        qobject_cast<QQuickItem*>(mover.create())->setParentItem(m_view.rootObject());
        QObject::connect(&m_view, &QQuickWindow::frameSwapped, &m_view, [this] { ++m_frames; });
        m_view.show();
    }

    int frames() const { return m_frames; }
    /// Milliseconds from frame to frame over the time given.
    double frameMs(int durationMs)
    {
        m_frames = 0;
        QEventLoop loop;
        QTimer::singleShot(durationMs, &loop, &QEventLoop::quit);
        loop.exec();
        return m_frames == 0 ? durationMs : static_cast<double>(durationMs) / m_frames;
    }

private:
    QQuickView m_view;
    int m_frames = 0;
};

void publishFor(BrokerProcess& broker, const QString& topic)
{
    QByteArrayList portion;
    for (int i = 0; i < messagesPerSecond / portionsPerSecond; ++i)
        portion.append("{\"type\":\"room\"}");
    auto next = std::chrono::steady_clock::now();
    for (int i = 0; i < seconds * portionsPerSecond; ++i) {
        broker.publish(topic, portion);
        next += std::chrono::milliseconds(1000 / portionsPerSecond);
        std::this_thread::sleep_until(next);
    }
}

} // namespace

int main(int argc, char** argv)
{
    LiveTerminal live(argc, argv);
    if (!live.isUp())
        return 1;
    const GlobalConfig* config = GlobalConfig::getInstance();
    int received = 0;
    QObject::connect(MainClass::getInstance(), &MainClass::mqttSignal, qApp, [&] { ++received; });

    MovingBoard board;
    board.frameMs(2000); // first fetch and first frames
    const double quietMs = board.frameMs(seconds * 1000);
    const int quietFrames = board.frames();
    live.terminal.house().reset();
    std::thread publisher(publishFor, std::ref(live.broker), config->MQTT_ROOM_STATUS() + config->storeId());
    const double busyMs = board.frameMs(seconds * 1000);
    const int busyFrames = board.frames();
    publisher.join();
    board.frameMs(1000); // the last mark is served
    const QString last = QStringLiteral("/bba01/getOverTime");
    const int refreshes = live.terminal.house().seen(last);
    live.broker.publish(config->MQTT_ROOM_STATUS() + config->storeId(), {"one more"});
    board.frameMs(1500);

    Measure::printRatio("from frame to frame: 1,000 broker messages a second / none", "ms", quietMs, busyMs,
                        1.5);
    const int sent = seconds * messagesPerSecond + 1;
    const int ticks = seconds * 2 + 2;
    const int oneMore = live.terminal.house().seen(last) - refreshes;
    Measure::printRatio("messages of the burst: received / sent", "", sent, received, 1);
    Measure::printRatio("board refreshes in it / ticks of 500 ms", "", ticks, refreshes, 1);
    Measure::printRatio("refreshes for one message more", "", 1, oneMore, 1);
    // What never happened meets every goal.
    const bool hasMeasured[] = {isAtLeast("frames of the quiet board", seconds, quietFrames),
                                isAtLeast("frames in the burst", seconds, busyFrames),
                                isAtLeast("messages received", sent, received),
                                isAtLeast("board refreshes in the burst", seconds, refreshes),
                                isAtLeast("refreshes for one message more", 1, oneMore)};
    return std::all_of(std::begin(hasMeasured), std::end(hasMeasured), [](bool is) { return is; }) ? 0 : 1;
}
