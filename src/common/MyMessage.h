#pragma once

#include "common/Property.h"
#include "common/Singleton.h"

#include <functional>

/// Relay of messages to the user: whoever has something to say emits here, the root window shows it.
class MyMessage : public QObject, public Singleton<MyMessage>
{
    Q_OBJECT
    PROPERTY(QString, message, setMessage, {}) // for pages that want one, the relay doesn't use it

public:
    /// infoType: 1 "success", 2 "error", anything else "info".
    Q_INVOKABLE void showMessage(const QString& msg, int infoType);
    /// With a line in the log.
    Q_INVOKABLE void showError(const QString& msg);
    /// Without a line in the log.
    Q_INVOKABLE void ShowError(const QString& msg);
    Q_INVOKABLE void showOk(const QString& msg);
    /// An error behind which again() can be had as long as the message stands, such as a slip that was lost.
    void showErrorWithReprint(const QString& msg, std::function<void()> again);
    /// The user wants it again.
    Q_INVOKABLE void reprint();

Q_SIGNALS:
    /// infoType is "success", "error" or "info".
    void showMessageSignal(const QString& msg, const QString& infoType);
    /// Behind the message that says what was lost.
    void reprintOffered();
    void openBusyDlgSignal();
    void closeBusyDlgSignal();

private:
    friend class Singleton<MyMessage>;
    MyMessage() = default;

    std::function<void()> m_again; ///< empty when nothing was lost last
};
