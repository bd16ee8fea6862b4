#include "common/MyMessage.h"

#include <QDebug>

void MyMessage::showMessage(const QString& msg, int infoType)
{
    Q_EMIT showMessageSignal(msg, infoType == 1   ? QStringLiteral("success")
                                  : infoType == 2 ? QStringLiteral("error")
                                                  : QStringLiteral("info"));
}

void MyMessage::showError(const QString& msg)
{
    qDebug().noquote() << msg;
    Q_EMIT showMessageSignal(msg, QStringLiteral("error"));
}

void MyMessage::ShowError(const QString& msg) { Q_EMIT showMessageSignal(msg, QStringLiteral("error")); }

void MyMessage::showOk(const QString& msg) { Q_EMIT showMessageSignal(msg, QStringLiteral("success")); }
