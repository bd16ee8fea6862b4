#include "vm/module3/Module3Vm.h"

#include "services/Bda02Service.h"
#include "vm/module3/ClockModels.h"

Module3Vm::Module3Vm(QObject* parent) : ActionVm(parent)
{
    connect(this, &Module3Vm::operStatusChanged, this, &Module3Vm::setLoaderSignal);
}

Module3Vm::~Module3Vm()
{
    delete pStaffDetail();
    qDeleteAll(m_items);
    qDeleteAll(m_lines);
}

void Module3Vm::init(const QString& staffNo)
{
    act([&] {
        return fetch(&Bda02Service::getStaffInfo, {{"staffNo", staffNo}},
                     [&](const GetStaffInfo& reply) { takeStaff(staffNo, reply.data()); });
    });
}

void Module3Vm::takeStaff(const QString& staffNo, const StaffDetailInfoDto* found)
{
    StaffDetailDto* staff = foundStaffOrSaid(found, staffNo);
    const int status = staff ? staff->workStatus() : 0;
    if (staff && status != Waiting && status != OnService && status != Assigned) {
        MyMessage::getInstance()->ShowError(
            QStringLiteral("工号【%1】非[待钟/上钟]状态不允许操作").arg(staffNo));
        staff = nullptr;
    }
    if (!staff) {
        Q_EMIT onCloseSignal();
        return;
    }
    setPStaffDetail(new StaffDetailDto(staff));
    fetch(&Bda02Service::getStaffItemList, {{"staffId", staff->id()}}, [&](const GetStaffItemList& reply) {
        takeItems(serverItemsOf(reply), found->itemList());
        setOperStatus(status == OnService ? EndPage : StartPage);
    });
}

void Module3Vm::takeItems(const QList<ServerItemDto*>& items, const Array<OnServerItemDto*>& lines)
{
    qDeleteAll(m_items);
    m_items = items;
    qDeleteAll(m_lines);
    m_lines.clear();
    for (OnServerItemDto* line : lines)
        m_lines.append(new OnServerItemDto(line));
    Q_EMIT pServerListChanged();
    Q_EMIT pOnServerListChanged();
}

StaffDetailDto* foundStaffOrSaid(const StaffDetailInfoDto* found, const QString& staffNo)
{
    if (found && found->staffInfo())
        return found->staffInfo();
    MyMessage::getInstance()->ShowError(QStringLiteral("未找到工号【%1】信息").arg(staffNo));
    return nullptr;
}
