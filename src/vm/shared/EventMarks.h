#pragma once

#include <QMutex>
#include <QObject>
#include <QSet>
#include <QTimer>
#include <QVector>

#include <functional>

/// Keeps a page live: while it exists, the broker's events on its topics set marks, and a tick every 500 ms
/// lets the page fetch what is marked. An event means only that something changed, and so does a connection
/// that comes back: what was published meanwhile is lost. A broker that hangs up each time marks
/// only every 10 s. A member of the page's view-model, which may be
/// destroyed during a tick.
class EventMarks : public QObject
{
    Q_OBJECT

public:
    struct Topic
    {
        QString prefix; ///< the store id follows
        QString mark;   ///< empty: its events mark nothing
    };

    /// onTick fetches what it takes the marks of; the next tick comes 500 ms after it has returned. All is
    /// marked at first.
    EventMarks(QObject* page, const QVector<Topic>& topics, std::function<void()> onTick);
    ~EventMarks() override;

    /// What an event on this topic, which comes without the store id, marks.
    void hear(const QString& topic);
    void mark(const QString& what);
    /// Takes the mark off; whether it was there.
    bool take(const QString& what);
    /// One tick. It leaves the marks for a later one while anything is waited for, a dialog or another call,
    /// and while the user taps: a fetch would take his next tap from him. Returns also when the page has gone
    /// in the meantime.
    void tick();

private:
    void onReconnect();
    void markAll();

    const QVector<Topic> m_topics;
    const std::function<void()> m_onTick;
    QTimer m_timer;
    QTimer m_reconnectMark; ///< while it runs, what connections mark is put off to its end
    bool m_isReconnectDue = false;
    QMutex m_mutex; ///< guards the marks
    QSet<QString> m_marks;
};
