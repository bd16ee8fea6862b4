#include "net/LogText.h"

#include <QRegularExpression>

namespace {

constexpr int mostBytes = 64 * 1024;

} // namespace

QString masked(const QString& text)
{
    // A value may be cut off at the end of the text, and as long as that: nothing here tries a part twice.
    static const QRegularExpression inJson(
        QStringLiteral(
            R"re(("(?:secretKey|token|secret|\w*(?:pwd|passwd|password))"\s*:\s*)(?:"[^"\\]*+(?:\\.[^"\\]*+)*+(?:"|\\?$)|[^\s"\[{,}\]]++))re"),
        QRegularExpression::CaseInsensitiveOption | QRegularExpression::DotMatchesEverythingOption);
    static const QRegularExpression inQuery(
        QStringLiteral(R"re(([?&](?:secretKey|token|secret|\w*(?:pwd|passwd|password))=)[^&\s]*+)re"),
        QRegularExpression::CaseInsensitiveOption);
    QString result = text;
    result.replace(inJson, QStringLiteral("\\1\"***\""));
    result.replace(inQuery, QStringLiteral("\\1***"));
    return result;
}

QString loggedReply(const QByteArray& body)
{
    if (body.size() <= mostBytes)
        return masked(QString::fromUtf8(body));
    return masked(QString::fromUtf8(body.left(mostBytes))) + QStringLiteral("… (%1 bytes)").arg(body.size());
}
