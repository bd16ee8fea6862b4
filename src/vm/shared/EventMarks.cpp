#include "vm/shared/EventMarks.h"

#include "app/MainClass.h"
#include "common/GlobalConfig.h"
#include "common/WaitStack.h"
#include "vm/shared/TapWatch.h"

#include <QPointer>

namespace {

constexpr int tickMs = 500;
constexpr int retryMs = 50;   ///< until a tick that has to wait looks again
constexpr int quietMs = 1000; ///< after a tap
constexpr int reconnectMarkMs = 10000;

} // namespace

EventMarks::EventMarks(QObject* page, const QVector<Topic>& topics, std::function<void()> onTick)
    : QObject(page), m_topics(topics), m_onTick(std::move(onTick)), m_timer(this), m_reconnectMark(this)
{
    MainClass* main = MainClass::getInstance();
    QList<QString> wanted;
    for (const Topic& topic : m_topics)
        wanted.append(topic.prefix + GlobalConfig::getInstance()->storeId());
    main->setMqttTopics(wanted);
    connect(main, &MainClass::mqttConnected, this, &EventMarks::onReconnect);
    m_reconnectMark.setObjectName(QStringLiteral("reconnectMark"));
    m_reconnectMark.setSingleShot(true);
    connect(&m_reconnectMark, &QTimer::timeout, this, [this] {
        if (m_isReconnectDue)
            onReconnect();
    });
    m_timer.setObjectName(QStringLiteral("eventTick"));
    connect(&m_timer, &QTimer::timeout, this, &EventMarks::tick);
    m_timer.start(tickMs);
    markAll();
}

EventMarks::~EventMarks() { MainClass::getInstance()->setMqttTopics({}); }

void EventMarks::hear(const QString& topic)
{
    if (topic.isEmpty())
        return;
    for (const Topic& known : m_topics) {
        if (known.prefix == topic && !known.mark.isEmpty())
            mark(known.mark);
    }
}

void EventMarks::mark(const QString& what)
{
    QMutexLocker lock(&m_mutex);
    m_marks.insert(what);
}

void EventMarks::onReconnect()
{
    m_isReconnectDue = m_reconnectMark.isActive();
    if (m_isReconnectDue)
        return;
    markAll();
    m_reconnectMark.start(reconnectMarkMs);
}

void EventMarks::markAll()
{
    for (const Topic& topic : m_topics) {
        if (!topic.mark.isEmpty())
            mark(topic.mark);
    }
}

bool EventMarks::take(const QString& what)
{
    QMutexLocker lock(&m_mutex);
    return m_marks.remove(what);
}

void EventMarks::tick()
{
    const QPointer<EventMarks> self(this);
    m_timer.stop();
    if (!WaitStack::isEmpty() || TapWatch::isFingerDown() || TapWatch::isTapWithin(quietMs)) {
        m_timer.start(retryMs);
        return;
    }
    m_onTick();
    if (self)
        m_timer.start(tickMs);
}
