#pragma once

#include "dto/ApiRes.h"
#include "net/BaseRequest.h"

#include <QElapsedTimer>
#include <QObject>

class GetSysApiReqUrls;
class libcurl;

namespace NetWorkUtls {

/// The signed back-end call, a plain function for its caller: it returns when the exchange is over, while
/// timers and repaints go on and the user's input is dropped. Made on the stack for one call; main thread.
class NetServer : public QObject
{
    Q_OBJECT

public:
    /// isThread lets the user's input through during the wait.
    explicit NetServer(bool isThread, QObject* parent) : QObject(parent), m_isThread(isThread) {}

    /// Performs the call and returns its reply, never null; the caller ends it with deleteLater.
    ///
    /// Transport failures come as code "CONNECT_ERR" or "-2". A reply that asks for a supervisor opens his
    /// dialog and the call is repeated with his id, as often as the back end asks.
    template <typename T>
    T* api(const BaseRequest& request)
    {
        return static_cast<T*>(call(
            request, [] { return static_cast<ApiRes*>(new T()); }, &T::staticMetaObject));
    }

    /// The line list from the first built-in endpoint that answers at all, each given one try of 3 seconds.
    /// Never null; code "-1" when none answered.
    GetSysApiReqUrls* getApiUrls(const BaseRequest& request);

    /// Milliseconds until the URL answered with whatever HTTP status, -1 when it didn't within 2 seconds.
    int testApi(const QString& url);

    /// How many calls wait for their answer, those that let the user's input through among them.
    static int underWay() { return s_underWay; }

    /// Puts the ids of the rights that the call needs into its data, as `acode`.
    static void chechAuth(const QString& path, QJsonObject& data);
    /// The value as text: a bool as "0" or "1", a number as its whole part, anything else as an empty string.
    static QString jsonVal2Str(const QJsonObject& json, const QString& key);
    static QString getUuid();
    static QString Auth(const QString& token, const QString& ts, const QString& nonce, const QString& json,
                        const QString& secret);

private:
    ApiRes* call(BaseRequest request, ApiRes* (*makeReply)(), const QMetaObject* replyMeta);
    void waitFor(libcurl& worker, const QString& url, const BaseRequest& request, const QString& body);
    void logExchange(const QString& url, const QString& json, const QByteArray& reply) const;

    static int s_underWay;

    const bool m_isThread;
    QElapsedTimer m_elapsed;
};

} // namespace NetWorkUtls
