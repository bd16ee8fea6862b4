#pragma once

#include <QJsonObject>
#include <QMap>
#include <QString>

enum class NetMethod { Get = 0, Post = 1 };

/// One back-end call.
struct BaseRequest
{
    NetMethod method = NetMethod::Get;
    QString url;                    ///< path behind the line's base URL
    QMap<QString, QString> params;  ///< further query parameters, sent as they are and not signed
    QMap<QString, QString> headers; ///< further HTTP headers
    QJsonObject data;               ///< business fields, merged into the signed JSON
};
