// A whole call through the engine against the bare exchange of the same request on the calling thread.

#include "Measure.h"

#include "common/Clock.h"
#include "common/GlobalConfig.h"
#include "common/LoggerThread.h"
#include "net/NetServer.h"
#include "net/Nonce.h"
#include "net/RequestText.h"
#include "platform/CurlLibrary.h"
#include "services/Baa00Service.h"
#include "support/HouseProcess.h"
#include "support/SelfSignedCertificate.h"

#include <QCoreApplication>
#include <QTemporaryDir>

namespace {

constexpr int turnLength = 10;
constexpr int httpRounds = 100;
constexpr int httpsRounds = 10;

LoggerThread* logger = nullptr;

size_t keep(char* bytes, size_t size, size_t count, void* reply)
{
    static_cast<QByteArray*>(reply)->append(bytes, static_cast<int>(size * count));
    return size * count;
}

/// The exchange alone: a new handle, performed at once. With the library's default check of certificates its
/// bundle is read, and the exchange ends at the self-signed certificate.
bool performBare(const RequestText& text, const QString& token, bool isChecked)
{
    const CurlLibrary& curl = GlobalConfig::getInstance()->curl();
    QByteArray reply;
    const QByteArray url = text.url.toUtf8();
    const QByteArray body = text.body.toUtf8();
    CURL* handle = curl.curl_easy_init();
    curl_slist* headers = curl.curl_slist_append(nullptr, ("Authorization:" + token).toUtf8().constData());
    headers = curl.curl_slist_append(headers, "Content-Type:application/x-www-form-urlencoded;charset=UTF-8");
    curl.curl_easy_setopt(handle, CURLOPT_URL, url.constData());
    curl.curl_easy_setopt(handle, CURLOPT_POST, 1L);
    curl.curl_easy_setopt(handle, CURLOPT_POSTFIELDS, body.constData());
    curl.curl_easy_setopt(handle, CURLOPT_HTTPHEADER, headers);
    curl.curl_easy_setopt(handle, CURLOPT_WRITEFUNCTION, &keep);
    curl.curl_easy_setopt(handle, CURLOPT_WRITEDATA, &reply);
    const CURLcode result = curl.curl_easy_perform(handle);
    curl.curl_slist_free_all(headers);
    curl.curl_easy_cleanup(handle);
    return isChecked ? result == CURLE_PEER_FAILED_VERIFICATION
                     : result == CURLE_OK && reply.contains("\"200\"");
}

void login()
{
    GlobalConfig* config = GlobalConfig::getInstance();
    config->setToken({});
    config->setSecret({});
    LoginMod* reply = Baa00Service::getInstance()->loginMod(
        {{"workNo", "1001"}, {"pwd", "1001"}, {"modCode", "ROOMINFO_CTRL"}},
        QStringLiteral("demo-secret-key-0001"));
    if (!reply->data())
        qFatal("login: %s", qPrintable(reply->msg()));
    config->setToken(reply->data()->token());
    config->setSecret(reply->data()->secret());
    config->userInfo()->update(reply->data()->userInfo());
    reply->deleteLater();
}

void compare(const char* what, const QStringList& houseOptions, int rounds, double goal)
{
    HouseProcess house(houseOptions);
    if (!house.isReady())
        qFatal("no demo house");
    const bool isChecked = house.url().startsWith(QLatin1String("https:"));
    GlobalConfig* config = GlobalConfig::getInstance();
    config->setApiUrl(house.url());
    login();
    std::vector<double> bare;
    std::vector<double> whole;
    // In turns of several, since reading the bundle leaves the processor's caches cold for whatever comes next.
    for (int i = 0; i < rounds; ++i) {
        for (int turn = 0; turn < turnLength; ++turn) {
            BaseRequest request;
            request.method = NetMethod::Post;
            request.url = QStringLiteral("/baa00/keepLogin");
            const RequestText text = signedRequestText(request, requestTimestamp(), Nonce::next());
            bare.push_back(Measure::microseconds([&] {
                if (!performBare(text, config->token(), isChecked))
                    qFatal("the bare exchange failed");
            }));
        }
        for (int turn = 0; turn < turnLength; ++turn) {
            whole.push_back(Measure::microseconds([&] {
                GetAuthInfoByCode* reply = Baa00Service::getInstance()->keepLogin();
                if (reply->code() != QLatin1String("200"))
                    qFatal("the call failed: %s", qPrintable(reply->msg()));
                reply->deleteLater();
            }));
            QCoreApplication::processEvents();
        }
    }
    Measure::printRatio(what, "us", Measure::median(bare), Measure::median(whole), goal);
}

} // namespace

int main(int argc, char** argv)
{
    QCoreApplication application(argc, argv);
    if (!GlobalConfig::getInstance()->initLibcurl())
        return 1;
    QTemporaryDir folder;
    const SelfSignedCertificate files;
    // The log is written as in a shop, by its own thread.
    LoggerThread ownLogger(folder.filePath(QStringLiteral("log")), LoggerThread::Limits());
    logger = &ownLogger;
    const QtMessageHandler before =
        qInstallMessageHandler([](QtMsgType type, const QMessageLogContext&, const QString& text) {
            if (type == QtFatalMsg)
                std::fprintf(stderr, "%s\n", qPrintable(text));
            logger->log(text);
        });
    compare("one call over HTTP: engine / bare exchange, new handle", {}, httpRounds, 2.5);
    compare("one call over HTTPS: engine / bare exchange, default bundle",
            {"--tls", files.certificate(), files.key()}, httpsRounds, 0.1);
    qInstallMessageHandler(before);
    return 0;
}
