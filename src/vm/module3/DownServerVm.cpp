#include "vm/module3/DownServerVm.h"

#include "common/Clock.h"
#include "common/GlobalConfig.h"
#include "services/Bda02Service.h"
#include "vm/module3/Module3Vm.h"
#include "vm/module3/Voucher.h"

#include <QJsonArray>

namespace {

constexpr int clockPage = 1; ///< what the end of a service is asked from

} // namespace

DownServerVm::DownServerVm(QObject* parent)
    : ActionVm(parent), m_items(new ServerItemModel(this)), m_kinds(new ServerTypeModel(this)),
      m_lines(new OnServerItemModel(this))
{
    const GlobalConfig* config = GlobalConfig::getInstance();
    setItemColumns(serverItemColumns());
    setPrintCount(config->stop_server_print_count);
    setIsTypeEnabled(config->isHaveAuth("0324"));
    setIsAddEnabled(config->isHaveAuth("0303"));
    setIsChgEnabled(config->isHaveAuth("0314"));
    setIsRefundEnabled(config->isHaveAuth("0319"));
    setIsCardEnabled(config->isHaveAuth("0316"));
    setIsStopEnabled(config->isHaveAuth("0304"));
}

void DownServerVm::init(StaffDetailDto* staff, const QList<ServerItemDto*>& items,
                        const QList<OnServerItemDto*>& lines)
{
    m_orderId = staff->orderId();
    m_staffId = staff->id();
    m_hardCardId = staff->hardCardId();
    m_pushId = staff->pushId();
    m_roomId = staff->roomId();
    m_workTypeId = staff->workTypeId();
    m_type = staff->type();
    setStaffNo(staff->staffNo());
    setStaffName(staff->name());
    setCardNo(staff->cardno());
    setRoomNo(staff->roomNo());
    setIsSelectedItem(false);
    setSurplus(staff->surplus());
    setFetchedAt(Clock::now().toString(QStringLiteral("HH:mm")));
    m_items->take(items);
    m_lines->take(lines);
    m_kinds->uncheckAll();
    m_kinds->checkKind(m_type);
}

template <typename Endpoint>
void DownServerVm::change(Endpoint endpoint, const QJsonObject& data, const char* done)
{
    act([&] {
        const QPointer<DownServerVm> self(this);
        if (!changeSilently(endpoint, data))
            return false;
        if (self)
            updateStaffInfo();
        MyMessage::getInstance()->showOk(QString::fromUtf8(done));
        return true;
    });
}

void DownServerVm::updateStaffInfo()
{
    const QPointer<DownServerVm> self(this);
    const bool isOnService = readStaff();
    if (self && !isOnService)
        Q_EMIT onCloseSignal();
}

/// Whether he is still on a service and all of it could be read; if not, the user has been told.
bool DownServerVm::readStaff()
{
    const QPointer<DownServerVm> self(this);
    const auto info = call(&Bda02Service::getStaffInfo, {{"staffNo", staffNo()}});
    if (!self || !isOkOrShown(*info))
        return false;
    StaffDetailDto* staff = foundStaffOrSaid(info->data(), staffNo());
    if (!staff || !require(staff->workStatus() == Module3Vm::OnService, "当前技师状态发生变化"))
        return false;
    const auto answer = call(&Bda02Service::getStaffItemList, {{"staffId", staff->id()}});
    if (!self || !isOkOrShown(*answer))
        return false;
    const QList<ServerItemDto*> items = serverItemsOf(*answer);
    init(staff, items, info->data()->itemList().list());
    qDeleteAll(items);
    return true;
}

QJsonObject DownServerVm::withRoom(QJsonObject data) const
{
    if (!m_roomId.isEmpty())
        data.insert("roomId", m_roomId);
    return data;
}

void DownServerVm::addServer(const QString& itemId, int num)
{
    change(&Bda02Service::addServer,
           withRoom({{"staffId", m_staffId},
                     {"hardCardId", m_hardCardId},
                     {"itemId", itemId},
                     {"typeId", m_workTypeId},
                     {"onTypeId", m_workTypeId},
                     {"pushId", m_pushId},
                     {"num", qMax(1, num)}}),
           "加钟成功");
}

void DownServerVm::changeServer(const QString& itemId)
{
    if (!isEnabled() || !require(m_lines->checkedIndex() >= 0, "请先选择需要换钟的项目"))
        return;
    change(&Bda02Service::changeServer,
           {{"orderId", m_lines->row(m_lines->checkedIndex()).orderId},
            {"itemId", itemId},
            {"typeId", m_workTypeId},
            {"onTypeId", m_workTypeId}},
           "换钟成功");
}

void DownServerVm::chgAssignType(int index)
{
    const int kind = m_kinds->row(index).typeId;
    if (kind == 0 || kind == m_type)
        return;
    change(&Bda02Service::chgAssignType, {{"newType", kind}, {"orderId", m_orderId}}, "更换成功");
}

void DownServerVm::chgHandCard(const QString& cardNo)
{
    change(&Bda02Service::changeCard,
           withRoom({{"staffId", m_staffId}, {"cardId", m_hardCardId}, {"cardNo", cardNo}}), "加钟成功");
}

void DownServerVm::chargeBack(const QString& orderId)
{
    change(&Bda02Service::chargeBack, {{"staffId", m_staffId}, {"orderIds", QJsonArray{orderId}}}, "退钟成功");
}

bool DownServerVm::stopServer()
{
    return act([this] {
        const auto reply = call(&Bda02Service::endServer, {{"orderId", m_orderId}, {"pageType", clockPage}});
        if (!isOkOrShown(*reply))
            return false;
        MyMessage::getInstance()->showOk(QStringLiteral("停钟成功"));
        if (reply->data())
            printVouchers(*reply->data());
        return true;
    });
}

void DownServerVm::onChecked(int index)
{
    if (m_lines->onChecked(index))
        setIsSelectedItem(true);
}
