#include "vm/mainpage/Fps.h"

#include <QQuickWindow>

Fps::Fps(QQuickItem* parent) : QQuickItem(parent)
{
    connect(&m_timer, &QTimer::timeout, this, [this] {
        m_fps = m_frames.exchange(0);
        Q_EMIT fpsChanged();
    });
    m_timer.start(1000);
}

void Fps::itemChange(ItemChange change, const ItemChangeData& value)
{
    if (change == ItemSceneChange) {
        disconnect(m_counting);
        if (value.window) {
            m_counting = connect(
                value.window, &QQuickWindow::afterRendering, this, [this] { ++m_frames; },
                Qt::DirectConnection);
        }
    }
    QQuickItem::itemChange(change, value);
}
