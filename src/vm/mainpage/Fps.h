#pragma once

#include <QQuickItem>
#include <QTimer>

#include <atomic>

/// Counts the frames that its window renders; `fps` is the number of the last second.
class Fps : public QQuickItem
{
    Q_OBJECT
    Q_PROPERTY(int fps READ fps NOTIFY fpsChanged)

public:
    explicit Fps(QQuickItem* parent = nullptr);

    int fps() const { return m_fps; }

Q_SIGNALS:
    void fpsChanged();

protected:
    void itemChange(ItemChange change, const ItemChangeData& value) override;

private:
    std::atomic<int> m_frames{0}; ///< counted on the render thread
    int m_fps = 0;
    QTimer m_timer;
    QMetaObject::Connection m_counting;
};
