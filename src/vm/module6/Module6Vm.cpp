#include "vm/module6/Module6Vm.h"

#include "services/Bda02Service.h"

Module6Vm::Module6Vm(QObject* parent) : ActionVm(parent)
{
    connect(this, &Module6Vm::operStatusChanged, this, &Module6Vm::setLoaderSignal);
}

Module6Vm::~Module6Vm() { delete pStaffWorkInfo(); }

void Module6Vm::init(const QString& staffNo, const QString& staffId)
{
    Q_UNUSED(staffNo) // the answer has it as well
    if (staffId.isEmpty()) {
        Q_EMIT onCloseSignal();
        return;
    }
    act([&] { return getStaffInfo(staffId); });
}

bool Module6Vm::getStaffInfo(const QString& staffId)
{
    return fetch(&Bda02Service::getStaffWorkInfo, {{"staffId", staffId}},
                 [this](const GetStaffWorkInfo& reply) { takeStaff(reply.data()); });
}

void Module6Vm::takeStaff(StaffWorkInfoDto* staff)
{
    if (!require(staff, "未能获取到技师信息")) {
        setOperStatus(Closed);
        return;
    }
    setPStaffWorkInfo(new StaffWorkInfoDto(staff));
    if (staff->serverStatus() == 0)
        setOperStatus(StartPage);
    else if (staff->serverStatus() == 1)
        setOperStatus(EndPage);
}
