#pragma once

#include <QElapsedTimer>
#include <QObject>
#include <QPointer>

class QQuickWindow;
class QTouchDevice;

/// Knows what the user's finger does, over all windows. Where a back-end call begins to drop input it takes
/// back what is pressed: the release will never be seen, and nothing may fire at the next tap. Main thread.
class TapWatch : public QObject
{
    Q_OBJECT

public:
    /// Watches the application from here on, for as long as that lives. Done once.
    static void install();

    /// Whether a finger or mouse button is down.
    static bool isFingerDown();
    /// Whether the last tap began or ended less than so many milliseconds ago.
    static bool isTapWithin(int ms);
    /// Whether a press now would be dropped: a dialog has opened or closed under the finger since the press
    /// before, so shortly ago that this one is still meant for what was there.
    static bool isPressStray();

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    explicit TapWatch(QObject* parent);

    void cancelPresses();
    bool isStray(ulong timestamp) const;
    void notePress(ulong timestamp);

    static TapWatch* s_installed;

    QTouchDevice* m_touch = nullptr;        ///< of the touch that is under way, null without one
    QPointer<QQuickWindow> m_touchedWindow; ///< the window that it began on
    QElapsedTimer m_sinceTap;               ///< invalid before the first
    QElapsedTimer m_sincePress;             ///< likewise
    ulong m_pressedAt = 0;                  ///< ms, by the clock of the events
    int m_dialogChanges = 0;                ///< of the WaitStack, when the last press came
};
