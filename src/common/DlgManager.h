#pragma once

#include "common/Property.h"
#include "common/Singleton.h"

/// Who authorised a refused call; an empty id means that nobody did.
struct Authoriser
{
    QString id;
    QString no;
    QString name;
};

/// Relay between the program and the two dialogs that the root window opens for it. Both operations return when
/// the dialog has closed.
class DlgManager : public QObject, public Singleton<DlgManager>
{
    Q_OBJECT
    PROPERTY(QString, askedCall, setAskedCall, {}) // the call that a supervisor is asked for, in words

public:
    /// Asks for a supervisor on the spot; the call is told in words, if there are any.
    Authoriser showAuthDlg(const QString& call = {});
    /// Lets the user choose a line; whether he has.
    bool showCloudDlg();
    /// What the supervisor dialog delivers, from its page.
    Q_INVOKABLE void authResult(const QString& id, const QString& no, const QString& name);
    /// What the line dialog delivers.
    Q_INVOKABLE void cloudResult(bool isChosen) { m_isLineChosen = isChosen; }

Q_SIGNALS:
    void authSignal();
    void cloudSignal();

private:
    friend class Singleton<DlgManager>;
    DlgManager() = default;

    Authoriser m_authoriser;
    bool m_isLineChosen = false;
};
