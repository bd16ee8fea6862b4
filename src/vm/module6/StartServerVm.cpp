#include "vm/module6/StartServerVm.h"

#include "services/Bda02Service.h"

void StartServerVm::init(StaffWorkInfoDto* staffDto)
{
    if (!staffDto)
        return;
    m_staffId = staffDto->id();
    setStaffNo(staffDto->code());
    setStaffName(staffDto->name());
}

bool StartServerVm::startServer()
{
    constexpr int start = 1;
    if (!require(!m_staffId.isEmpty(), "未能获取到技师信息"))
        return false;
    return act([this] {
        return change(&Bda02Service::updateStaffWorkStatus, {{"staffId", m_staffId}, {"serverStatus", start}});
    });
}
