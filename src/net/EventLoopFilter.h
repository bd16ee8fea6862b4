#pragma once

#include <QEventLoop>

#include <functional>

/// The wait of a back-end call: timers, repaints and events go on, taps and keys are dropped, not queued. A
/// dialog that opens during the wait gets its input.
class EventLoopFilter : public QEventLoop
{
    Q_OBJECT
    Q_PROPERTY(bool isThread READ isThread WRITE setIsThread)

public:
    explicit EventLoopFilter(QObject* parent = nullptr) : QEventLoop(parent) {}

    /// True lets the user's input through.
    bool isThread() const { return m_isThread; }
    void setIsThread(bool isThread) { m_isThread = isThread; }

    /// What runs on the main thread each time before input begins to be dropped: a finger that is down then
    /// would never be seen to go up.
    static void setOnWait(std::function<void()> onWait);

    /// Drops input while it runs when called on the main thread.
    int exec();
    /// Ends the filtering at once and the object at the next turn of the event loop.
    void deleteLater();
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    bool m_isThread = false;
    bool m_installed = false;
};
