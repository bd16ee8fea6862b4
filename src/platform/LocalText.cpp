#include "platform/LocalText.h"

#include <QTextCodec>

namespace {

QTextCodec* gbk()
{
    static QTextCodec* codec = QTextCodec::codecForName("GBK");
    return codec;
}

} // namespace

QByteArray LocalText::encode(const QString& text, int* lacking)
{
    // Half pairs would leave the codec waiting, and its one-byte euro sign is the first half of a character to
    // printers: both are settled here.
    constexpr QChar euroSign(0x20AC);
    QString known;
    known.reserve(text.size());
    int replaced = 0;
    for (int i = 0; i < text.size(); ++i) {
        const QChar c = text.at(i);
        if (!c.isSurrogate() && c != euroSign) {
            known += c;
            continue;
        }
        known += QLatin1Char('?');
        ++replaced;
        if (c.isHighSurrogate() && i + 1 < text.size() && text.at(i + 1).isLowSurrogate())
            ++i;
    }

    QTextCodec::ConverterState state(QTextCodec::IgnoreHeader);
    const QByteArray bytes = gbk()->fromUnicode(known.constData(), known.size(), &state);
    if (lacking)
        *lacking += replaced + state.invalidChars;
    return bytes;
}

QString LocalText::decode(const QByteArray& bytes) { return gbk()->toUnicode(bytes); }

int LocalText::columns(const QString& text) { return encode(text).size(); }
