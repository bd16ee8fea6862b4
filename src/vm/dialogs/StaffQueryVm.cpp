#include "vm/dialogs/StaffQueryVm.h"

#include "services/HttpUtils.h"

namespace {

struct Person
{
    QString id;
    QString number;
    QString name;
};

/// Empty when the list has no such number.
Person personWith(const QString& staffNo, const StaffListDto* found)
{
    if (!found)
        return {};
    for (const StaffInfoDto* staff : found->stafflist()) {
        if (staff->staffNo() == staffNo)
            return {staff->staffId(), staff->staffNo(), staff->staffName()};
    }
    return {};
}

} // namespace

void StaffQueryVm::queryApi(const QString& staffNo)
{
    const QPointer<StaffQueryVm> self(this);
    Person person;
    const bool isRead = fetch(&HttpUtils::getStaffList1, {{"staffNo", staffNo}},
                              [&](const GetStaffList& reply) { person = personWith(staffNo, reply.data()); });
    if (!self)
        return;
    if (isRead && require(!person.number.isEmpty(), "未查到对应工号的信息"))
        Q_EMIT successSignal(person.id, person.number, person.name);
    else
        Q_EMIT errorSignal();
}
