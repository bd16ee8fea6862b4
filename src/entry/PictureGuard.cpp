#include "entry/PictureGuard.h"

#include <QBuffer>
#include <QImageReader>
#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QQmlEngine>
#include <QSslConfiguration>
#include <QSslSocket>
#include <QTimer>
#include <QtEndian>

#include <cstring>

namespace {

const QByteArray pngStart = QByteArrayLiteral("\x89PNG\r\n\x1a\n");

bool isWeb(const QUrl& url)
{
    return url.scheme() == QLatin1String("http") || url.scheme() == QLatin1String("https");
}

/// Without the chunks that a decoder may leave out; what is behind the last whole one is cut off.
QByteArray essentialPng(const QByteArray& png)
{
    constexpr qint64 frameBytes = 12; // length, type, checksum
    constexpr qint64 typeOffset = 4;
    constexpr uchar ancillary = 0x20;
    QByteArray kept = pngStart;
    for (qint64 at = kept.size(); at + frameBytes <= png.size();) {
        const char* chunk = png.constData() + at;
        const qint64 size = frameBytes + qFromBigEndian<quint32>(chunk);
        if (size > png.size() - at)
            break;
        const bool isTransparency = std::memcmp(chunk + typeOffset, "tRNS", 4) == 0;
        if (isTransparency || (static_cast<uchar>(chunk[typeOffset]) & ancillary) == 0)
            kept.append(chunk, static_cast<int>(size));
        at += size;
    }
    return kept;
}

/// A fetch that is whole and harmless when it is over, or has failed.
class PictureReply : public QNetworkReply
{
public:
    PictureReply(const QNetworkRequest& request, const PictureGuard::Limits& limits, QObject* parent)
        : QNetworkReply(parent), m_limits(limits), m_timer(this)
    {
        setRequest(request);
        setUrl(request.url());
        setOperation(QNetworkAccessManager::GetOperation);
        open(ReadOnly | Unbuffered);
        m_timer.setSingleShot(true);
        connect(&m_timer, &QTimer::timeout, this,
                [this] { end(m_source ? TimeoutError : ProtocolUnknownError); });
        m_timer.start(0);
    }

    /// Without a source it fails by itself.
    void follow(QNetworkReply* source)
    {
        m_source = source;
        source->setParent(this);
        source->setReadBufferSize(m_limits.bytes);
        connect(source, &QNetworkReply::readyRead, this, &PictureReply::take);
        connect(source, &QNetworkReply::finished, this, [this] {
            take();
            end(m_source->error());
        });
        m_timer.start(m_limits.ms);
    }

    void abort() override { end(OperationCanceledError); }
    bool isSequential() const override { return true; }
    qint64 bytesAvailable() const override { return isFinished() ? m_bytes.size() - m_read : 0; }

protected:
    qint64 readData(char* data, qint64 most) override
    {
        const qint64 count = qMin(most, bytesAvailable());
        std::memcpy(data, m_bytes.constData() + m_read, static_cast<size_t>(count));
        m_read += count;
        return count > 0 || !isFinished() ? count : -1;
    }

private:
    void take()
    {
        m_bytes += m_source->readAll();
        if (m_bytes.size() > m_limits.bytes)
            end(UnknownContentError);
    }

    void end(NetworkError error)
    {
        if (isFinished())
            return;
        m_timer.stop();
        setFinished(true);
        if (m_source) {
            m_source->disconnect(this);
            m_source->abort();
        }
        m_bytes = error == NoError ? harmlessPicture(m_bytes, m_limits) : QByteArray();
        if (m_bytes.isEmpty()) {
            const NetworkError cause = error == NoError ? UnknownContentError : error;
            setError(cause, QStringLiteral("no picture"));
            Q_EMIT errorOccurred(cause);
        }
        Q_EMIT finished();
    }

    const PictureGuard::Limits m_limits;
    QNetworkReply* m_source = nullptr; ///< a child
    QTimer m_timer;
    QByteArray m_bytes;
    qint64 m_read = 0;
};

class PictureAccess : public QNetworkAccessManager
{
public:
    PictureAccess(const PictureGuard::Limits& limits, QObject* parent)
        : QNetworkAccessManager(parent), m_limits(limits)
    {
    }

protected:
    QNetworkReply* createRequest(Operation operation, const QNetworkRequest& request, QIODevice*) override
    {
        auto* reply = new PictureReply(request, m_limits, this);
        if (operation != GetOperation || !isWeb(request.url()))
            return reply;
        QNetworkRequest bounded(request);
        bounded.setAttribute(QNetworkRequest::RedirectPolicyAttribute,
                             QNetworkRequest::NoLessSafeRedirectPolicy);
        bounded.setMaximumRedirectsAllowed(m_limits.redirections);
        // Like any other answer of the back end's, whose certificates aren't checked.
        QSslConfiguration tls = bounded.sslConfiguration();
        tls.setPeerVerifyMode(QSslSocket::VerifyNone);
        bounded.setSslConfiguration(tls);
        // Else it is unpacked on the way, without a bound.
        bounded.setRawHeader("Accept-Encoding", "identity");
        reply->follow(QNetworkAccessManager::createRequest(operation, bounded, nullptr));
        return reply;
    }

private:
    const PictureGuard::Limits m_limits;
};

} // namespace

QByteArray harmlessPicture(const QByteArray& bytes, const PictureGuard::Limits& limits)
{
    QByteArray picture = bytes.startsWith(pngStart) ? essentialPng(bytes) : bytes;
    if (picture.size() > limits.bytes)
        return {};
    QBuffer buffer(&picture);
    QImageReader reader(&buffer);
    reader.setDecideFormatFromContent(true);
    const QByteArray format = reader.format();
    if (!QByteArrayList{"png", "jpeg", "gif", "bmp"}.contains(format) ||
        (format == "jpeg" && picture.count("\xff\xda") > limits.jpegScans))
        return {};
    const QSize size = reader.size();
    const bool isBounded = !size.isEmpty() && size.width() <= limits.pixels / size.height();
    return isBounded ? picture : QByteArray();
}

void PictureGuard::guard(QQmlEngine& engine)
{
    engine.setNetworkAccessManagerFactory(this);
    engine.setUrlInterceptor(this);
}

QNetworkAccessManager* PictureGuard::create(QObject* parent) { return new PictureAccess(m_limits, parent); }

QUrl PictureGuard::intercept(const QUrl& url, DataType type)
{
    // Pages and modules aren't told by the back end.
    const bool isOurs = url.isEmpty() || url.scheme() == QLatin1String("qrc");
    if (type != UrlString || isOurs || isWeb(url))
        return url;
    return QUrl(QStringLiteral("qrc:/images/empty.png"));
}
