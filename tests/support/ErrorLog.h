#pragma once

#include <QStringList>
#include <QtGlobal>

/// Takes what is logged as an error while it lives.
class ErrorLog
{
public:
    ErrorLog()
    {
        lines.clear();
        before =
            qInstallMessageHandler([](QtMsgType type, const QMessageLogContext& context, const QString& text) {
                type == QtCriticalMsg ? lines.append(text) : before(type, context, text);
            });
    }
    ~ErrorLog() { qInstallMessageHandler(before); }

    inline static QStringList lines;

private:
    inline static QtMessageHandler before;
};
