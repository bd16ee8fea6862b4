#pragma once

#include "vm/shared/ActionVm.h"

/// Turns a typed staff number into a known member of staff.
class StaffQueryVm : public ActionVm
{
    Q_OBJECT

public:
    explicit StaffQueryVm(QObject* parent = nullptr) : ActionVm(parent) {}

    /// Looks for exactly this number. One of the signals follows; what went wrong has been shown.
    Q_INVOKABLE void queryApi(const QString& staffNo);

Q_SIGNALS:
    void successSignal(const QString& staffId, const QString& staffNo, const QString& staffName);
    void errorSignal();
};
