#pragma once

#include "vm/shared/ReadingVm.h"

/// Identifies a supervisor who vouches for one refused call. Nothing of his login is kept: the operator stays.
class AuthVm : public ReadingVm
{
    Q_OBJECT
    PROPERTY(QString, modCode, setModCode, {}) // not used by the login

public:
    /// Listens to the staff card reader until it is destroyed.
    explicit AuthVm(QObject* parent = nullptr) : ReadingVm(parent) { m_reader.listenToStaff(); }

    /// By card when rfid isn't empty, else by number and password.
    Q_INVOKABLE bool login(const QString& userNo, const QString& pwd, const QString& rfid);

    void readingExec(QString cardId) override;

Q_SIGNALS:
    void success(const QString& staffId, const QString& staffNo, const QString& staffName);

private:
    bool tryLogin(const QString& userNo, const QString& pwd, const QString& rfid);
};
