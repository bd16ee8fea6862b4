#pragma once

#include "common/BaseObject.h"
#include "common/Property.h"

/// Identifies a supervisor who vouches for one refused call. Nothing of his login is kept: the operator stays.
class AuthVm : public BaseObject
{
    Q_OBJECT
    PROPERTY(bool, isEnabled, setIsEnabled, true) // false while a login runs
    PROPERTY(QString, modCode, setModCode, {})    // not used by the login

public:
    /// Listens to the staff card reader until it is destroyed.
    explicit AuthVm(QObject* parent = nullptr);
    ~AuthVm() override;

    /// By card when rfid isn't empty, else by number and password.
    Q_INVOKABLE bool login(const QString& userNo, const QString& pwd, const QString& rfid);

    void readingExec(QString cardId) override;

Q_SIGNALS:
    void success(const QString& staffId, const QString& staffNo, const QString& staffName);
};
