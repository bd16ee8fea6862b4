#pragma once

#include "vm/shared/ReadingVm.h"

class LoginDto;

/// Logs a member of staff in for a module. A login replaces the session of the whole terminal: token, operator,
/// work areas and, once the module's right is granted, the rights.
class LoginVm : public ReadingVm
{
    Q_OBJECT
    PROPERTY(QString, modCode, setModCode, {}) // module word

public:
    explicit LoginVm(QObject* parent = nullptr) : ReadingVm(parent) {}

    /// With true it listens to the staff card reader until it is destroyed.
    Q_INVOKABLE void init(bool isRead);
    /// By card when rfid isn't empty, else by number and password. The outcome comes as one of the two signals
    /// too.
    Q_INVOKABLE bool login(const QString& userNo, const QString& pwd, const QString& rfid);
    /// Fetches all of the staff member's rights; the old ones stay when that fails.
    Q_INVOKABLE bool getAllAuth();
    /// Whether the staff member holds the module's right; says why not.
    Q_INVOKABLE bool checkLoginAuth();

    void readingExec(QString cardId) override;

Q_SIGNALS:
    void loginErrorSignal();
    void loginSuccessSignal(const QString& staffId, const QString& staffNo, const QString& staffName,
                            const QString& rfid);

private:
    bool tryLogin(const QString& userNo, const QString& pwd, const QString& rfid);
    void takeWorkAreas(const LoginDto* session);
};
