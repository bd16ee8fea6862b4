#include "vm/module6/EndServerVm.h"

#include "common/Clock.h"
#include "common/GlobalConfig.h"
#include "dto/staff/ClockKind.h"
#include "services/Bca01Service.h"
#include "services/Bda02Service.h"
#include "vm/module6/ServiceSlip.h"
#include "vm/shared/GuestLookup.h"

namespace {

constexpr int leastTimerColumns = 8;
constexpr qint64 freeStopSeconds = 959; ///< that long a clock may be stopped without a booking
constexpr int bookOperation = 2;
constexpr int bookOnCard = 0;

} // namespace

EndServerVm::EndServerVm(QObject* parent) : CatalogueVm(parent), m_lines(new NewItemModel(this))
{
    const GlobalConfig* config = GlobalConfig::getInstance();
    setItemColumns(qMax(leastTimerColumns, config->js_item_count));
    setPrintCount(config->stop_server_print_count);
    selectSingleArea();
}

void EndServerVm::init(StaffWorkInfoDto* staff)
{
    if (!staff) {
        setIsEnabled(false);
        return;
    }
    m_staffId = staff->id();
    setStaffNo(staff->code());
    setStaffName(staff->name());
    setStartTime(staff->serverStartTime());
    setTimeSpan(QStringLiteral("%1分钟").arg(secondsSince(startTime(), Clock::now()) / 60));
}

bool EndServerVm::getOrderInfo(const QString& rfid, const QString& cardNo)
{
    return act([&] {
        bool isTaken = false;
        const QPointer<EndServerVm> self(this);
        fetch(&Bca01Service::getCardOrderInfo, guestRequest(rfid, cardNo, {}),
              [&](const GetCardOrderInfo& reply) { isTaken = reply.data() && takeCard(*reply.data()); });
        if (self)
            setUnknownCard(isTaken || !wasAnswered() ? QString() : rfid + cardNo);
        return isTaken;
    });
}

bool EndServerVm::takeCard(const GetCardOrderDto& guest)
{
    const HandCardInfoDto* card = guest.cardInfo() ? usableCardOrSaid(guest) : nullptr;
    if (!card)
        return false;
    setCardNo(card->cardno());
    m_hardCardId = card->id();
    return true;
}

int EndServerVm::getNewItemIndex(const QString& itemId) const
{
    return m_lines->find([&](const new_item_struct& line) { return line.itemId == itemId; });
}

QVariantMap EndServerVm::tapItem(int index)
{
    const item_struct item = m_items->row(index);
    if (item.itemId.isEmpty() || !isEnabled())
        return {};
    if (const int present = getNewItemIndex(item.itemId); present >= 0) {
        addNum(present, 1);
        Q_EMIT lineTouched(present);
        return {{"merged", true}};
    }
    const bool isPriceAsked = item.sellFlg == marketPriceSale;
    return {{"itemId", item.itemId},
            {"itemName", item.itemName},
            {"price", item.price},
            {"remark", QString()},
            {"num", 1},
            {"sellFlg", item.sellFlg},
            {"status", NormalLine},
            {"serverType", item.serverType},
            {"dialogs", isPriceAsked ? QStringList{QStringLiteral("definePriceDlg")} : QStringList()}};
}

void EndServerVm::addNewItem(int index, const QVariantMap& data)
{
    const item_struct item = m_items->row(index);
    if (item.itemId.isEmpty())
        return;
    new_item_struct line;
    line.itemId = item.itemId;
    line.itemName = item.itemName;
    line.serverType = item.serverType;
    line.sellFlg = item.sellFlg;
    line.times = item.times;
    line.status = NormalLine;
    line.num = static_cast<int>(data.value("num").toDouble());
    line.price = data.value("price").toDouble();
    line.remark = data.value("remark").toString();
    line.areaId = areaId();
    line.staffNo = staffNo();
    if (item.serverType == TechnicianLine) {
        line.pushNo = pushNo();
        line.serviceType = static_cast<int>(ClockKind::Rotation);
        line.overFlg = 0;
    }
    m_lines->append(line);
    updateAmount();
    Q_EMIT lineTouched(m_lines->rowCount() - 1);
}

void EndServerVm::addNum(int index, int num)
{
    m_lines->addNum(index, num);
    updateAmount();
}

void EndServerVm::subNum(int index, int num)
{
    m_lines->subNum(index, num);
    updateAmount();
}

void EndServerVm::deleteNewItem(int index)
{
    m_lines->removeAt(index);
    updateAmount();
}

QVariantList EndServerVm::newActions(int index) const
{
    Q_UNUSED(index)
    return {QVariantMap{{"key", "delete"}, {"text", QStringLiteral("删除")}, {"isEnabled", true}}};
}

bool EndServerVm::isReadyToStop(int sType) const
{
    if (!require(!m_staffId.isEmpty(), "未能获取到技师信息"))
        return false;
    if (sType == WithoutBooking)
        return require(secondsSince(startTime(), Clock::now()) <= freeStopSeconds, "超过允许直接下钟时间");
    return require(!cardNo().isEmpty(), "手牌号不能为空") &&
           require(m_lines->rowCount() > 0, "请选择需要录入的项目");
}

bool EndServerVm::stopServer(int sType)
{
    if (!isReadyToStop(sType))
        return false;
    return act([&] {
        const QPointer<EndServerVm> self(this);
        if (!stopClock() || !self)
            return false;
        if (sType == WithBooking && !saveBatch())
            return false;
        MyMessage::getInstance()->showOk(QStringLiteral("操作成功"));
        return true;
    });
}

/// Once it stands it isn't stopped again, so that what is booked late still tells the true end.
bool EndServerVm::stopClock()
{
    constexpr int stop = 0;
    if (isStopped())
        return true;
    const QPointer<EndServerVm> self(this);
    if (!changeSilently(&Bda02Service::updateStaffWorkStatus, {{"staffId", m_staffId}, {"serverStatus", stop}}))
        return false;
    if (self) {
        setIsStopped(true);
        m_stoppedAt = Clock::now();
    }
    return true;
}

/// The present pusher and position go with every line.
QJsonArray EndServerVm::requestLines(const QVector<new_item_struct>& lines) const
{
    QVector<new_item_struct> sent = lines;
    for (new_item_struct& line : sent)
        line.pushNo = pushNo();
    QJsonArray request;
    for (const QJsonValue& value : requestOf(sent, {})) {
        QJsonObject line = value.toObject();
        if (!roomNo().isEmpty())
            line.insert("roomNo", roomNo());
        request.append(line);
    }
    return request;
}

bool EndServerVm::saveBatch()
{
    if (!require(!cardNo().isEmpty(), "手牌号不能为空"))
        return false;
    // What is printed is what was sent: the page may be gone when the answer comes.
    const QPointer<EndServerVm> self(this);
    const QVector<new_item_struct> lines = m_lines->rows();
    const ServiceEnd end{staffNo(), cardNo(), roomNo(), startTime(), m_stoppedAt};
    const auto reply = call(&Bca01Service::batchUpdateOrder, {{"items", requestLines(lines)},
                                                              {"opType", bookOperation},
                                                              {"mode", bookOnCard},
                                                              {"hardCardId", m_hardCardId}});
    if (self)
        setIsBookingUnsure(!isAnswered(*reply));
    if (!isOkOrShown(*reply))
        return false;
    printServiceEnd(end, lines);
    return true;
}
