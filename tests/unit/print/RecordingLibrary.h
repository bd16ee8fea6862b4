#pragma once

#include "platform/LocalText.h"
#include "print/PosPrintDLL.h"

#include <QStringList>

/// A printer library that writes down what it is told: one line for each call, and for each text with the feed
/// behind it ("2|tall text|"); bare feeds are counted. Only one at a time.
class RecordingLibrary : public PosPrintDLL
{
public:
    RecordingLibrary()
    {
        calls.clear();
        isRefusing = false;
        POS_Open = [](const char* name, unsigned a, unsigned b, unsigned c, unsigned d,
                      unsigned kind) -> PosHandle {
            note(QString("open \"%1\" 0x%2").arg(LocalText::decode(name), QString::number(kind, 16)));
            if (a || b || c || d)
                note("with serial settings");
            return isRefusing ? posOpenFailed() : &calls;
        };
        POS_Close = [] { return note("close"); };
        POS_Reset = [] { return note("reset"); };
        POS_StartDoc = [] { return note("start"); };
        POS_EndDoc = [] { return note("end"); };
        POS_SetMode = [](unsigned mode) { return note(QString("mode %1").arg(mode)); };
        POS_FeedLine = [] {
            if (isAtLineEnd)
                ++feeds;
            isAtLineEnd = true;
            return 0;
        };
        POS_S_TextOut = [](const char* text, unsigned x, unsigned width, unsigned height, unsigned font,
                           unsigned style) {
            const bool isUsual = x == 0 && width == 1 && font == 0 && style == 0;
            note(QString::number(height) + '|' + LocalText::decode(text) + (isUsual ? "|" : "| unusual"));
            isAtLineEnd = false;
            return 0;
        };
        POS_CutPaper = [](unsigned mode, unsigned distance) {
            return note(QString("cut %1 %2").arg(mode).arg(distance));
        };
    }

    inline static QStringList calls;
    inline static bool isRefusing; ///< there is no printer

private:
    static int note(const QString& call)
    {
        if (!isAtLineEnd)
            calls.last() += " (not fed)";
        isAtLineEnd = true;
        if (feeds > 0)
            calls.append(feeds == 1 ? "feed" : QString("feed x%1").arg(feeds));
        feeds = 0;
        calls.append(call);
        return 0;
    }

    inline static int feeds = 0;           ///< bare ones, not written down yet
    inline static bool isAtLineEnd = true; ///< false behind a text that hasn't been fed
};
