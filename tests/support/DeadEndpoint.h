#pragma once

#include <QString>
#include <QTcpServer>

/// A base URL where nothing listens: a port of this machine that was free a moment ago.
inline QString deadEndpointUrl()
{
    QTcpServer server;
    server.listen(QHostAddress::LocalHost);
    return QStringLiteral("http://127.0.0.1:%1").arg(server.serverPort());
}
