#include "RecordingLibrary.h"

#include "platform/LocalText.h"

namespace {

struct Recording
{
    QStringList calls;
    int feeds = 0;           ///< bare ones, not written down yet
    bool isAtLineEnd = true; ///< false behind a text that hasn't been fed
    bool isRefusing = false;
};
Recording recording;

int note(const QString& call)
{
    if (!recording.isAtLineEnd)
        recording.calls.last() += QStringLiteral(" (not fed)");
    recording.isAtLineEnd = true;
    if (recording.feeds > 0)
        recording.calls.append(recording.feeds == 1 ? QStringLiteral("feed")
                                                    : QStringLiteral("feed x%1").arg(recording.feeds));
    recording.feeds = 0;
    recording.calls.append(call);
    return 0;
}

PosHandle POS_CALL open(const char* name, unsigned a, unsigned b, unsigned c, unsigned d, unsigned kind)
{
    note(QStringLiteral("open \"%1\" 0x%2").arg(LocalText::decode(name), QString::number(kind, 16)));
    if (a || b || c || d)
        note(QStringLiteral("with serial settings"));
    return recording.isRefusing ? posOpenFailed() : &recording;
}

int POS_CALL feedLine()
{
    if (recording.isAtLineEnd)
        ++recording.feeds;
    recording.isAtLineEnd = true;
    return 0;
}

int POS_CALL textOut(const char* text, unsigned x, unsigned width, unsigned height, unsigned font,
                     unsigned style)
{
    note(QStringLiteral("%1|%2|").arg(QString::number(height), LocalText::decode(text)));
    if (x != 0 || width != 1 || font != 0 || style != 0)
        recording.calls.last() +=
            QStringLiteral(" (x %1 width %2 font %3 style %4)").arg(x).arg(width).arg(font).arg(style);
    recording.isAtLineEnd = false;
    return 0;
}

int POS_CALL setMode(unsigned mode) { return note(QStringLiteral("mode %1").arg(mode)); }

int POS_CALL cutPaper(unsigned mode, unsigned distance)
{
    return note(QStringLiteral("cut %1 %2").arg(mode).arg(distance));
}

} // namespace

RecordingLibrary::RecordingLibrary()
{
    recording = Recording();
    POS_Open = &open;
    POS_Close = []() -> int { return note(QStringLiteral("close")); };
    POS_Reset = []() -> int { return note(QStringLiteral("reset")); };
    POS_StartDoc = []() -> int { return note(QStringLiteral("start")); };
    POS_EndDoc = []() -> int { return note(QStringLiteral("end")); };
    POS_SetMode = &setMode;
    POS_FeedLine = &feedLine;
    POS_S_TextOut = &textOut;
    POS_CutPaper = &cutPaper;
}

QStringList RecordingLibrary::calls() const { return recording.calls; }

void RecordingLibrary::refuse() { recording.isRefusing = true; }
