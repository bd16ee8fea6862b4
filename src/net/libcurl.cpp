#include "net/libcurl.h"

#include "common/GlobalConfig.h"
#include "common/WebAddress.h"
#include "platform/CurlLibrary.h"

#include <QMutexLocker>

namespace {

constexpr int getTries = 5;
constexpr int retryPauseMs = 1000;
constexpr int retryPauseStepMs = 50;
constexpr size_t mostReplyBytes = 32 * 1024 * 1024;

const char userAgent[] = "Mozilla/5.0 (Windows NT 10.0; Win64; x64) AppleWebKit/537.36 (KHTML, like Gecko) "
                         "Chrome/120.0.0.0 Safari/537.36";

/// A reply that doesn't end mustn't end the program: beyond the limit the transfer fails.
size_t WriteMemoryCallback(char* bytes, size_t size, size_t count, void* userData)
{
    auto* reply = static_cast<QByteArray*>(userData);
    if (static_cast<size_t>(reply->size()) + size * count > mostReplyBytes)
        return 0;
    reply->append(bytes, static_cast<int>(size * count));
    return size * count;
}

/// Ends the transfer of a worker that nobody waits for any more.
int abortWhenInterrupted(void* worker, curl_off_t, curl_off_t, curl_off_t, curl_off_t)
{
    return static_cast<QThread*>(worker)->isInterruptionRequested() ? 1 : 0;
}

bool carriesToken(const QString& path)
{
    return path != QLatin1String("/baa00/loginMod") && path != QLatin1String("/caa04/getTerminalList");
}

curl_slist* headerList(const CurlLibrary& curl, const QString& token, const QMap<QString, QString>& headers)
{
    curl_slist* list =
        curl.curl_slist_append(nullptr, "Content-Type:application/x-www-form-urlencoded;charset=UTF-8");
    if (!token.isEmpty())
        list = curl.curl_slist_append(list, QStringLiteral("Authorization:%1").arg(token).toUtf8().constData());
    for (auto it = headers.constBegin(); it != headers.constEnd(); ++it)
        list = curl.curl_slist_append(list,
                                      QStringLiteral("%1: %2").arg(it.key(), it.value()).toUtf8().constData());
    return list;
}

} // namespace

libcurl::~libcurl()
{
    QMutexLocker lock(&m_mutex);
    wait();
}

void libcurl::api(const QString& url, const QMap<QString, QString>& headers, NetMethod method,
                  const QString& data, const QString& path)
{
    QMutexLocker lock(&m_mutex);
    if (isRunning())
        return;
    m_url = url;
    m_headers = headers;
    m_method = method;
    m_data = data;
    m_token = carriesToken(path) ? GlobalConfig::getInstance()->token() : QString();
    m_status = Failed;
    m_reply.clear();
    start(QThread::InheritPriority);
}

void libcurl::run()
{
    // The library would open files, too, and wait for one without end.
    if (!isWebAddress(m_url))
        return;
    const CurlLibrary& curl = GlobalConfig::getInstance()->curl();
    const QByteArray body = m_data.toUtf8();
    const QByteArray url = m_url.toUtf8();
    CURL* handle = curl.curl_easy_init();
    if (!handle)
        return;
    curl_slist* headers = headerList(curl, m_token, m_headers);

    curl.curl_easy_setopt(handle, CURLOPT_TIMEOUT, static_cast<long>(m_timeoutSeconds));
    curl.curl_easy_setopt(handle, CURLOPT_URL, url.constData());
    if (m_method == NetMethod::Get)
        curl.curl_easy_setopt(handle, CURLOPT_CUSTOMREQUEST, "GET");
    else
        curl.curl_easy_setopt(handle, CURLOPT_POST, 1L);
    // The certificate isn't checked. Without a bundle to check against, none is parsed, which would cost more
    // than the whole exchange.
    curl.curl_easy_setopt(handle, CURLOPT_SSL_VERIFYPEER, 0L);
    curl.curl_easy_setopt(handle, CURLOPT_SSL_VERIFYHOST, 0L);
    curl.curl_easy_setopt(handle, CURLOPT_CAINFO, nullptr);
    curl.curl_easy_setopt(handle, CURLOPT_CAPATH, nullptr);
    curl.shareTlsSessions(handle);
    curl.curl_easy_setopt(handle, CURLOPT_NOSIGNAL, 1L);
    // The time limit holds also while a name server doesn't answer: its look-up is left to itself.
    curl.curl_easy_setopt(handle, CURLOPT_QUICK_EXIT, 1L);
    curl.curl_easy_setopt(handle, CURLOPT_USERAGENT, userAgent);
    curl.curl_easy_setopt(handle, CURLOPT_HTTPHEADER, headers);
    curl.curl_easy_setopt(handle, CURLOPT_WRITEFUNCTION, &WriteMemoryCallback);
    curl.curl_easy_setopt(handle, CURLOPT_WRITEDATA, &m_reply);
    if (m_method == NetMethod::Post && !body.isEmpty())
        curl.curl_easy_setopt(handle, CURLOPT_POSTFIELDS, body.constData());
    curl.curl_easy_setopt(handle, CURLOPT_NOPROGRESS, 0L);
    curl.curl_easy_setopt(handle, CURLOPT_XFERINFOFUNCTION, &abortWhenInterrupted);
    curl.curl_easy_setopt(handle, CURLOPT_XFERINFODATA, static_cast<QThread*>(this));

    if (performWithRetries(curl, handle)) {
        long httpStatus = 0; // not looked at: the body's own code decides
        const CURLcode known = curl.curl_easy_getinfo(handle, CURLINFO_RESPONSE_CODE, &httpStatus);
        m_status = known == CURLE_OK ? Done : Failed;
    }
    curl.curl_slist_free_all(headers);
    curl.curl_easy_cleanup(handle);
}

bool libcurl::performWithRetries(const CurlLibrary& curl, void* handle)
{
    int triesLeft = getTries;
    for (CURLcode result; (result = curl.curl_easy_perform(handle)) != CURLE_OK;) {
        m_reply.clear(); // a transfer that broke off may have left half a body
        // One that was too long would be so again.
        if (m_method != NetMethod::Get || !m_isReconnect || result == CURLE_WRITE_ERROR) {
            m_status = Failed;
            return false;
        }
        m_status = NoAnswer;
        if (--triesLeft == 0 || !waitBeforeRetry())
            return false;
    }
    return true;
}

bool libcurl::waitBeforeRetry()
{
    for (int waited = 0; waited < retryPauseMs; waited += retryPauseStepMs) {
        if (isInterruptionRequested())
            return false;
        msleep(retryPauseStepMs);
    }
    return true;
}
