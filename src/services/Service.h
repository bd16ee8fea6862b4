#pragma once

#include "common/Singleton.h"
#include "net/NetServer.h"

/// Base of the service objects: one for each back-end module, one method for each endpoint. A method returns
/// when the reply is there; the reply is never null and the caller ends it with deleteLater. Main thread.
class Service : public QObject
{
    Q_OBJECT

protected:
    explicit Service(const QString& prefix) : m_prefix(prefix) {}

    template <typename T>
    T* get(const char* path, const QJsonObject& data = {}, const QMap<QString, QString>& params = {}) const
    {
        return NetWorkUtls::NetServer(false, nullptr).api<T>(request(NetMethod::Get, path, data, params));
    }

    template <typename T>
    T* post(const char* path, const QJsonObject& data = {}, const QMap<QString, QString>& params = {}) const
    {
        return NetWorkUtls::NetServer(false, nullptr).api<T>(request(NetMethod::Post, path, data, params));
    }

    BaseRequest request(NetMethod method, const char* path, const QJsonObject& data,
                        const QMap<QString, QString>& params) const
    {
        return {method, m_prefix + QLatin1String(path), params, {}, data};
    }

private:
    const QString m_prefix; ///< of every path
};
