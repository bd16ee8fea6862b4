#include "platform/Restart.h"

#include <QCoreApplication>
#include <QStringList>

#ifdef Q_OS_WIN
#include <QProcess>
#else
#include <QFile>

#include <unistd.h>

#include <vector>
#endif

namespace {

QString& programToRestart()
{
    static QString path; // empty: none
    return path;
}

QStringList& argumentsOfRestart()
{
    static QStringList arguments;
    return arguments;
}

} // namespace

void askForRestart()
{
    programToRestart() = QCoreApplication::applicationFilePath();
    argumentsOfRestart() = QCoreApplication::arguments().mid(1);
    QCoreApplication::quit();
}

void restartIfAsked()
{
    if (programToRestart().isEmpty())
        return;
#ifdef Q_OS_WIN
    // The new one waits for this one's claim to go.
    qputenv("KV_PANEL_RESTART", "1");
    QProcess::startDetached(programToRestart(), argumentsOfRestart());
#else
    std::vector<QByteArray> words{QFile::encodeName(programToRestart())};
    for (const QString& argument : argumentsOfRestart())
        words.push_back(argument.toLocal8Bit());
    std::vector<char*> pointers;
    for (QByteArray& word : words)
        pointers.push_back(word.data());
    pointers.push_back(nullptr);
    ::execv(words.front().constData(), pointers.data());
#endif
}
