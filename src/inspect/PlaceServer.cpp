#include "inspect/PlaceServer.h"

#include "inspect/ScreenItems.h"
#include "vm/shared/TapWatch.h"

#include <QLocalSocket>
#include <QQuickItem>
#include <QQuickWindow>

namespace {

QByteArray placeOf(const QString& name)
{
    if (!takesInput() || TapWatch::isPressStray())
        return "...";
    const QQuickItem* item = findPageItem(name);
    if (!item || !item->isEnabled() || !item->window()->isExposed())
        return "-";
    const QRectF area = item->mapRectToScene(QRectF(0, 0, item->width(), item->height()));
    const QPoint corner = item->window()->mapToGlobal(area.topLeft().toPoint());
    const QString place = QStringLiteral("%1 %2 %3 %4")
                              .arg(corner.x())
                              .arg(corner.y())
                              .arg(qRound(area.width()))
                              .arg(qRound(area.height()));
    const QString text = item->property("text").toString().simplified();
    return (text.isEmpty() ? place : place + QLatin1Char(' ') + text).toUtf8();
}

} // namespace

PlaceServer::PlaceServer(const QString& socket, QObject* parent) : QObject(parent)
{
    m_server.setSocketOptions(QLocalServer::UserAccessOption);
    connect(&m_server, &QLocalServer::newConnection, this, [this] {
        while (QLocalSocket* asker = m_server.nextPendingConnection()) {
            connect(asker, &QLocalSocket::readyRead, this, [this, asker] { answer(asker); });
            connect(asker, &QLocalSocket::disconnected, asker, &QObject::deleteLater);
        }
    });
    m_server.listen(socket);
}

void PlaceServer::answer(QLocalSocket* asker)
{
    while (asker->canReadLine())
        asker->write(placeOf(QString::fromUtf8(asker->readLine()).trimmed()) + '\n');
}
