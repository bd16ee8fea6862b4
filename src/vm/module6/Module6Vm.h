#pragma once

#include "dto/staff/StaffRecords.h"
#include "vm/shared/ActionVm.h"

/// The clock that runs before anything is ordered: tells whether the technician starts or stops it.
class Module6Vm : public ActionVm
{
    Q_OBJECT
    PROPERTY(int, operStatus, setOperStatus, 0) // a TimerPage
    OWNED_PROPERTY(StaffWorkInfoDto, pStaffWorkInfo, setPStaffWorkInfo)

public:
    enum TimerPage { Closed = -1, Unknown, StartPage, EndPage };

    explicit Module6Vm(QObject* parent = nullptr);
    ~Module6Vm() override;

    Q_INVOKABLE void init(const QString& staffNo, const QString& staffId);

Q_SIGNALS:
    /// The page of operStatus is to be shown.
    void setLoaderSignal();
    /// The module is to be left.
    void onCloseSignal();

private:
    bool getStaffInfo(const QString& staffId);
    void takeStaff(StaffWorkInfoDto* staff);
};
