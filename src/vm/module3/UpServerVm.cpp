#include "vm/module3/UpServerVm.h"

#include "common/GlobalConfig.h"
#include "services/Bca01Service.h"
#include "services/Bda02Service.h"
#include "vm/module3/Module3Vm.h"
#include "vm/shared/GuestLookup.h"

namespace {

enum PushCheck : int { Missing = 0, Complete = 1, NeedsPusher = 2 };

} // namespace

UpServerVm::UpServerVm(QObject* parent)
    : ActionVm(parent), m_items(new ServerItemModel(this)), m_kinds(new ServerTypeModel(this)),
      m_consumed(new OldItemModel(this))
{
    setItemColumns(serverItemColumns());
    m_kinds->onChecked(0);
    m_kinds->checkKind(GlobalConfig::getInstance()->js_assign_type);
    for (const ListModel* model : {static_cast<ListModel*>(m_items), static_cast<ListModel*>(m_kinds)}) {
        connect(model, &ListModel::dataChanged, this, &UpServerVm::summarize);
        connect(model, &ListModel::modelReset, this, &UpServerVm::summarize);
    }
}

void UpServerVm::summarize()
{
    const QString item = m_items->row(m_items->checkedIndex()).itemName;
    const QString kind = m_kinds->row(m_kinds->checkedIndex()).typeName;
    setSummary(item.isEmpty() ? item : item + QStringLiteral(" · ") + QString(kind).remove(QLatin1Char(' ')));
}

void UpServerVm::init(StaffDetailDto* staff, const QList<ServerItemDto*>& items)
{
    setStaffNo(staff->staffNo());
    setStaffName(staff->name());
    m_orderId = staff->orderId();
    m_staffId = staff->id();
    setIsAssigned(staff->workStatus() == Module3Vm::Assigned);

    const PlanConfigDto* plan = GlobalConfig::getInstance()->planConfig();
    if (m_orderId.isEmpty() && plan && !plan->noAlarmType().isEmpty()) {
        m_kinds->upate(plan->noAlarmType());
        m_kinds->onChecked(0);
        setIsTypeEnabled(true);
    }
    m_items->take(items, isAssigned() ? staff->itemId() : QString());
    if (!isAssigned())
        return;
    m_kinds->checkKind(staff->type());
    setCardNo(staff->cardno());
    setRoomNo(staff->roomNo());
}

bool UpServerVm::hasItem() const { return require(m_items->checkedIndex() >= 0, "请选择起钟项目"); }

bool UpServerVm::hasCard() const
{
    const SysConfigDto* store = GlobalConfig::getInstance()->sysConfig();
    return require(!cardNo().isEmpty() || (store && store->custCanAssign()), "请输入手牌");
}

int UpServerVm::checkPushNo()
{
    if (!hasItem() || !hasCard())
        return Missing;
    // Only a start without an order takes a pusher along.
    const PlanConfigDto* plan = GlobalConfig::getInstance()->planConfig();
    return plan && plan->isPush() == 1 && m_orderId.isEmpty() ? NeedsPusher : Complete;
}

bool UpServerVm::save(const QString& pushNo)
{
    if (!hasItem() || !require(m_kinds->checkedIndex() >= 0, "起钟类别不能为空") || !hasCard())
        return false;
    return act([&] { return start(pushNo); });
}

bool UpServerVm::start(const QString& pushNo)
{
    QJsonObject data{{"staffId", m_staffId},
                     {"itemId", m_items->row(m_items->checkedIndex()).itemId},
                     {"cardNo", cardNo()},
                     {"orderType", m_kinds->checkedKind()}};
    if (!roomNo().isEmpty())
        data.insert("roomNo", roomNo());
    if (!m_orderId.isEmpty()) {
        data.insert("orderId", m_orderId);
        return changeSilently(&Bda02Service::startServer, data);
    }
    if (!pushNo.isEmpty())
        data.insert("pushNo", pushNo);
    if (!changeSilently(&Bda02Service::startServerWithoutOrder, data))
        return false;
    MyMessage::getInstance()->showOk(QStringLiteral("起钟成功"));
    return true;
}

bool UpServerVm::getOrderInfo(const QString& rfid, const QString& cardNo)
{
    return act([&] {
        bool isTaken = false;
        const QPointer<UpServerVm> self(this);
        fetch(&Bca01Service::getCardOrderInfo, guestRequest(rfid, cardNo, {}),
              [&](const GetCardOrderInfo& reply) { isTaken = reply.data() && takeCard(*reply.data()); });
        if (self)
            setUnknownCard(isTaken || !wasAnswered() ? QString() : rfid + cardNo);
        return isTaken;
    });
}

bool UpServerVm::takeCard(const GetCardOrderDto& guest)
{
    const HandCardInfoDto* card = usableCardOrSaid(guest);
    if (!card)
        return false;
    setCardNo(card->cardno());
    m_consumed->update(guest.orderList());
    return true;
}
