#include "SlipReader.h"

#include "EscPos.h"
#include "platform/LocalText.h"

namespace {

/// Length of the command that starts at the place, 0 when the bytes there are text.
int commandLength(const QByteArray& bytes, int place)
{
    for (const QByteArray& twoByte : {EscPos::initialise().left(2), EscPos::initialise().right(2)}) {
        if (bytes.mid(place, 2) == twoByte)
            return 2;
    }
    if (bytes.mid(place, 2) == EscPos::height(1).left(2))
        return 3;
    if (bytes.mid(place, 3) == EscPos::cut(0).left(3))
        return 4;
    return 0;
}

} // namespace

QVector<PaperLine> readSlip(const QByteArray& bytes)
{
    QVector<PaperLine> lines;
    QByteArray text;
    int height = 1;
    for (int i = 0; i < bytes.size();) {
        const int length = commandLength(bytes, i);
        const QByteArray command = bytes.mid(i, qMax(length, 1));
        i += command.size();
        if (length == 0 && command != EscPos::feedLine()) {
            text += command;
        } else if (command == EscPos::feedLine()) {
            lines.append({LocalText::decode(text), text.isEmpty() ? 1 : height, false}); // a bare feed is low
            text.clear();
        } else if (command.startsWith(EscPos::height(1).left(2))) {
            height = command.at(2) % 16 + 1;
        } else if (length == 4) {
            lines.append({QString(), 1, true});
        } else {
            height = 1;
        }
    }
    return lines;
}
