#include "platform/SpeechEngine.h"

QString speechEngineName()
{
#ifdef Q_OS_WIN
    return QStringLiteral("sapi");
#else
    // The other packaged engine speaks English only.
    return QStringLiteral("speechd");
#endif
}
