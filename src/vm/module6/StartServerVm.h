#pragma once

#include "dto/staff/StaffRecords.h"
#include "vm/shared/ActionVm.h"

/// Starts the technician's clock, with no item yet.
class StartServerVm : public ActionVm
{
    Q_OBJECT
    PROPERTY(QString, staffNo, setStaffNo, {})
    PROPERTY(QString, staffName, setStaffName, {})

public:
    using ActionVm::ActionVm;

    Q_INVOKABLE void init(StaffWorkInfoDto* staffDto);
    Q_INVOKABLE bool startServer();

private:
    QString m_staffId;
};
