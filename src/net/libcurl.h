#pragma once

#include "net/BaseRequest.h"

#include <QByteArray>
#include <QMutex>
#include <QThread>

class CurlLibrary;

/// One HTTP exchange on a thread of its own. Made by the caller, run once by api(), read after `finished`,
/// destroyed.
///
/// A GET that fails is tried five times, a second apart; a POST is performed once and never again, by a handle
/// of its own, so that nothing is executed twice. A reply over 32 MiB is a failure, and is asked for once; so
/// is an address that isn't of the web. An interruption request ends the exchange within about a second.
class libcurl : public QThread
{
    Q_OBJECT
    Q_PROPERTY(int timeout READ timeout WRITE setTimeout)
    Q_PROPERTY(bool isReconnect READ isReconnect WRITE setIsReconnect)

public:
    enum Status {
        Failed = 1,   ///< not finished, or failed without another try
        Done = 0,     ///< an HTTP exchange took place, whatever its status code
        NoAnswer = -1 ///< a GET failed on all of its tries
    };

    explicit libcurl(QObject* parent = nullptr) : QThread(parent) {}
    /// Waits for the thread.
    ~libcurl() override;

    int timeout() const { return m_timeoutSeconds; }
    /// Seconds, for the whole transfer.
    void setTimeout(int seconds) { m_timeoutSeconds = seconds; }
    bool isReconnect() const { return m_isReconnect; }
    /// False: a GET is tried once.
    void setIsReconnect(bool isReconnect) { m_isReconnect = isReconnect; }

    /// Starts the exchange. The path decides whether the session's token goes along.
    void api(const QString& url, const QMap<QString, QString>& headers, NetMethod method, const QString& data,
             const QString& path);
    int getStatus() const { return m_status; }
    QByteArray readAll() const { return m_reply; }

protected:
    void run() override;

private:
    bool performWithRetries(const CurlLibrary& curl, void* handle);
    bool waitBeforeRetry();

    QMutex m_mutex; ///< guards the decision to start
    QString m_url;
    QString m_data;
    QString m_token; ///< the session's, taken when the exchange starts
    QMap<QString, QString> m_headers;
    NetMethod m_method = NetMethod::Get;
    QByteArray m_reply;
    int m_status = Failed;
    int m_timeoutSeconds = 30;
    bool m_isReconnect = true;
};
