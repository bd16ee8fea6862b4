// Pictures that the back end names, from a server that means no good.

#include "entry/PictureGuard.h"
#include "support/Rows.h"
#include "vm/dialogs/CloudModels.h"

#include <QBuffer>
#include <QImage>
#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QQmlComponent>
#include <QQmlEngine>
#include <QTcpServer>
#include <QTcpSocket>
#include <QTemporaryDir>
#include <QtEndian>

#include <memory>
#include <sys/stat.h>

namespace {

PictureGuard::Limits smallLimits()
{
    PictureGuard::Limits limits;
    limits.bytes = 100000;
    limits.ms = 1500;
    limits.pixels = 50 * 40;
    limits.jpegScans = 3;
    return limits;
}

QByteArray picture(const char* format, int width = 50, int height = 40)
{
    QImage image(width, height, QImage::Format_RGB32);
    image.fill(Qt::red);
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, format);
    return buffer.data();
}

/// With a text behind the first chunk, as long as a text may be.
QByteArray withText(QByteArray png)
{
    const QByteArray text = "Comment" + QByteArray(2, '\0') + qCompress(QByteArray(7000000, 'a')).mid(4);
    QByteArray chunk(4, '\0');
    qToBigEndian<quint32>(static_cast<quint32>(text.size()), chunk.data());
    return png.insert(33, chunk + "zTXt" + text + "crc?");
}

/// A picture of a few bytes that says it is 60,000 pixels wide and high.
QByteArray hugePicture()
{
    QByteArray bmp = picture("BMP", 1, 1);
    for (const int field : {18, 22})
        qToLittleEndian<qint32>(60000, bmp.data() + field);
    return bmp;
}

QByteArray reply(const QByteArray& body) { return "HTTP/1.1 200 OK\r\nConnection: close\r\n\r\n" + body; }

/// Answers each path with what is told for it, and then with more of it, without end or slowly.
class Server : public QTcpServer
{
public:
    Server()
    {
        listen(QHostAddress::LocalHost);
        connect(this, &QTcpServer::newConnection, this, [this] {
            QTcpSocket* socket = nextPendingConnection();
            connect(socket, &QTcpSocket::readyRead, this, [this, socket] {
                request = socket->readAll();
                const QByteArray path = request.split(' ').value(1);
                socket->write(answers.value(path));
                if (path == "/endless")
                    connect(socket, &QTcpSocket::bytesWritten, this,
                            [=] { written += socket->write(QByteArray(65536, 'x')); });
                else if (path != "/slow")
                    socket->disconnectFromHost();
            });
        });
    }
    QString url(const QString& path = {}) const
    {
        return QString("http://127.0.0.1:%1%2").arg(serverPort()).arg(path);
    }

    QMap<QByteArray, QByteArray> answers;
    QByteArray request;
    qint64 written = 0;
};

QByteArray redirection(const QString& url)
{
    return "HTTP/1.1 302 Found\r\nContent-Length: 0\r\nLocation: " + url.toUtf8() + "\r\n\r\n";
}

using FetchRows = Rows<QString, bool>;

} // namespace

class tst_pictures : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        const QString file = m_folder.filePath("picture.png");
        QVERIFY(QImage(2, 2, QImage::Format_RGB32).save(file));
        m_server.answers = {{"/png", reply(picture("PNG"))},
                            {"/jpeg", reply(picture("JPG"))},
                            {"/bmp", reply(picture("BMP"))},
                            {"/texts", reply(withText(picture("PNG")))},
                            {"/scans", reply(picture("JPG") + QByteArray("\xff\xda").repeated(3))},
                            {"/wide", reply(picture("PNG", 51, 40))},
                            {"/huge", reply(hugePicture())},
                            {"/cut", reply(picture("PNG").left(20))},
                            {"/svg", reply("<svg xmlns='http://www.w3.org/2000/svg' width='9' height='9'/>")},
                            {"/long", reply(picture("BMP") + QByteArray(100000, ' '))},
                            {"/endless", reply(picture("PNG"))},
                            {"/slow", "HTTP/1.1 200 OK\r\nContent-Length: 9999\r\n\r\n"},
                            {"/none", "HTTP/1.1 404 No\r\nConnection: close\r\n\r\n" + picture("PNG")},
                            {"/hop", redirection(m_server.url("/png"))},
                            {"/hop-file", redirection("file://" + file)},
                            {"/hop-round", redirection(m_server.url("/hop-round"))}};
    }

    void fetch_data()
    {
        const QString file = "file://" + m_folder.filePath("picture.png");
        const QString data = "data:image/png;base64," + picture("PNG").toBase64();
        FetchRows::add({{"png", "/png", true},
                        {"jpeg", "/jpeg", true},
                        {"bmp", "/bmp", true},
                        {"redirected", "/hop", true},
                        {"long texts in it", "/texts", true},
                        {"many scans", "/scans", false},
                        {"a pixel too wide", "/wide", false},
                        {"60,000 pixels wide", "/huge", false},
                        {"cut off", "/cut", false},
                        {"another kind", "/svg", false},
                        {"too long", "/long", false},
                        {"without end", "/endless", false},
                        {"never ready", "/slow", false},
                        {"not found", "/none", false},
                        {"redirected to a file", "/hop-file", false},
                        {"redirected without end", "/hop-round", false},
                        {"a file", file, false},
                        {"in the address", data, false}});
    }
    void fetch()
    {
        const auto& [name, address, isShown] = FetchRows::current();
        PictureGuard guard(smallLimits());
        const std::unique_ptr<QNetworkAccessManager> manager(guard.create(nullptr));
        const QUrl url(address.startsWith('/') ? m_server.url(address) : address);
        const std::unique_ptr<QNetworkReply> fetched(manager->get(QNetworkRequest(url)));
        QTRY_VERIFY(fetched->isFinished());
        const QByteArray bytes = fetched->readAll();
        QCOMPARE(fetched->error() == QNetworkReply::NoError, isShown);
        QCOMPARE(!bytes.isEmpty(), isShown);
        QCOMPARE(QImage::fromData(bytes).isNull(), !isShown);
        QVERIFY(!bytes.contains("zTXt"));
        // What the system holds on the way comes on top of what was taken.
        QVERIFY2(m_server.written < 30000000, qPrintable(QString::number(m_server.written)));
        QVERIFY(!address.startsWith('/') || m_server.request.contains("Accept-Encoding: identity"));
    }

    void iconsOfLines()
    {
        const auto icon = [](const QString& address) {
            ReqLineDto platform;
            platform.set_icon(address);
            return CloudLineData(&platform).icon;
        };
        for (const char* local : {"file:///etc/x.png", "/etc/x.png", "ftp://a.example/x.png", "data:,x"})
            QCOMPARE(icon(local), QString());
        QCOMPARE(icon("HTTPS://a.example/x.png"), QString("HTTPS://a.example/x.png"));
    }

    /// Whatever address a page is told; who opens the queue waits for good.
    void onAPage()
    {
        const QString queue = m_folder.filePath("queue.png");
        QCOMPARE(::mkfifo(queue.toLocal8Bit().constData(), 0600), 0);
        PictureGuard guard;
        QQmlEngine engine;
        guard.guard(engine);
        QQmlComponent page(&engine);
        page.setData("import QtQuick 2.15\nImage { property int widest: sourceSize.width }",
                     QUrl("qrc:/Page.qml"));
        const std::unique_ptr<QObject> image(page.create());
        QVERIFY(image);
        const auto width = [&](const QString& address) {
            image->setProperty("source", QUrl(address));
            constexpr int ready = 1;
            return QTest::qWaitFor([&] { return image->property("status") == ready; })
                       ? image->property("widest").toInt()
                       : -1;
        };
        const int empty = width("qrc:/images/empty.png");
        QVERIFY(empty > 50);
        for (const QString& local : {"file://" + queue, "file://" + m_folder.filePath("picture.png"), queue,
                                     QString("image://x/y"), QString("ftp://127.0.0.1/x")})
            QCOMPARE(width(local), empty);
        QCOMPARE(width(m_server.url("/png")), 50);
    }

private:
    QTemporaryDir m_folder;
    Server m_server;
};

QTEST_MAIN(tst_pictures)
#include "tst_pictures.moc"
