#include "common/MyMessage.h"

#include <QDebug>

#include <utility>

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

void MyMessage::showErrorWithReprint(const QString& msg, std::function<void()> again)
{
    showError(msg);
    m_again = std::move(again);
    Q_EMIT reprintOffered();
}

void MyMessage::reprint()
{
    if (const std::function<void()> again = std::exchange(m_again, nullptr))
        again();
}
