#pragma once

#include "common/Singleton.h"
#include "net/NetServer.h"

/// Base of the service objects: one for each back-end module, one line for each endpoint. A method returns when
/// the reply is there; the reply is never null and the caller ends it with deleteLater. Main thread.
class Service : public QObject
{
    Q_OBJECT

public:
    /// What a caller gives, all in the signed JSON.
    using Fields = const QJsonObject&;

protected:
    using Params = QMap<QString, QString>;

    /// A call that is made as soon as it is known which reply is wanted: when it becomes a pointer to one.
    class [[nodiscard]] Call
    {
    public:
        explicit Call(BaseRequest request) : m_request(std::move(request)) {}
        /// What the user does while the call is waited for isn't dropped.
        Call withInput() const
        {
            Call open(m_request);
            open.m_takesInput = true;
            return open;
        }
        template <typename T>
        operator T*() const
        {
            return NetWorkUtls::NetServer(m_takesInput, nullptr).api<T>(m_request);
        }

    private:
        const BaseRequest m_request;
        bool m_takesInput = false;
    };

    explicit Service(const QString& prefix) : m_prefix(prefix) {}

    Call get(const char* path, Fields data = {}, const Params& params = {}) const
    {
        return Call(request(NetMethod::Get, path, data, params));
    }
    Call post(const char* path, Fields data = {}, const Params& params = {}) const
    {
        return Call(request(NetMethod::Post, path, data, params));
    }
    BaseRequest request(NetMethod method, const char* path, Fields data, const Params& params) const;

private:
    const QString m_prefix; ///< of every path
};
