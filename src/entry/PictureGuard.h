#pragma once

#include <QByteArray>
#include <QQmlAbstractUrlInterceptor>
#include <QQmlNetworkAccessManagerFactory>

class QQmlEngine;

/// What pages show of pictures from outside, whatever address the back end tells: they come over http or https
/// or not at all, and what comes is bounded before it is decoded. Put in front of an engine; outlives it. Any
/// thread.
class PictureGuard : public QQmlNetworkAccessManagerFactory, public QQmlAbstractUrlInterceptor
{
public:
    /// Of one picture; beyond any of these it is missing. The defaults are the program's.
    struct Limits
    {
        int bytes = 8 * 1024 * 1024;
        int ms = 10000; ///< from the request to the last byte, redirections among it
        int redirections = 5;
        qint64 pixels = Q_INT64_C(4096) * 4096; ///< 64 MB once decoded
        int jpegScans = 64;                     ///< each costs as much time as a whole picture
    };

    PictureGuard() = default;
    explicit PictureGuard(const Limits& limits) : m_limits(limits) {}

    /// Before the engine loads anything.
    void guard(QQmlEngine& engine);

    /// What the engine fetches with.
    QNetworkAccessManager* create(QObject* parent) override;
    /// A picture neither of the web nor of the program itself is the empty one.
    QUrl intercept(const QUrl& url, DataType type) override;

private:
    const Limits m_limits;
};

/// The same picture without what isn't needed to show it: a PNG's texts and profiles may grow a thousandfold
/// when they are read. Empty when it is too large or no picture of a kind that is shown (PNG, JPEG, GIF, BMP).
QByteArray harmlessPicture(const QByteArray& bytes, const PictureGuard::Limits& limits);
