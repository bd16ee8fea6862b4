#include "common/GlobalConfig.h"
#include "vm/module2/Module2Vm.h"

// The lines of the till: how they come, change and are taken back.

namespace {

QVariantMap entry(const char* key, const char* text, bool isEnabled = true)
{
    return {{QStringLiteral("key"), QLatin1String(key)},
            {QStringLiteral("text"), QString::fromUtf8(text)},
            {QStringLiteral("isEnabled"), isEnabled}};
}

bool isAlwaysNewLine(const item_struct& item)
{
    return item.sellFlg == marketPriceSale || item.serverType == TechnicianLine || item.tagId > 0;
}

bool isBookedByOperator(const item_struct& item)
{
    return item.workerType.isEmpty() ||
           GlobalConfig::getInstance()->userInfo()->workerTypes().contains(item.workerType);
}

} // namespace

int Module2Vm::getNewItemIndex(const QString& itemId) const
{
    return m_newLines->find([&](const new_item_struct& line) { return line.itemId == itemId; });
}

QStringList Module2Vm::dialogsFor(const item_struct& item) const
{
    QStringList dialogs;
    if (item.sellFlg == marketPriceSale)
        dialogs.append(QStringLiteral("definePriceDlg"));
    if (item.tagId > 0)
        dialogs.append(QStringLiteral("tasteDlg"));
    if (item.serverType == TechnicianLine)
        dialogs.append(QStringLiteral("setJsServiceDlg"));
    else if (!isBookedByOperator(item))
        dialogs.append(QStringLiteral("staffQueryDlg"));
    return dialogs;
}

QVariantMap Module2Vm::tapItem(int index)
{
    const item_struct item = m_items->row(index);
    if (item.itemId.isEmpty() || !isEnabled())
        return {};
    const int present = isAlwaysNewLine(item) ? -1 : getNewItemIndex(item.itemId);
    if (present >= 0) {
        addNum(present, 1);
        Q_EMIT lineTouched(present);
        return {{"merged", true}};
    }
    QVariantMap line{{"itemId", item.itemId}, {"itemName", item.itemName},  {"price", item.price}, {"num", 1},
                     {"remark", QString()},   {"dialogs", dialogsFor(item)}};
    if (item.serverType != TechnicianLine && isBookedByOperator(item))
        line.insert("staffNo", GlobalConfig::getInstance()->userInfo()->code());
    return line;
}

void Module2Vm::addNewItem(int index, const QVariantMap& data)
{
    const item_struct item = m_items->row(index);
    if (item.itemId.isEmpty() || !isEnabled())
        return;
    new_item_struct line;
    line.itemId = item.itemId;
    line.serverType = item.serverType;
    line.isDeskNo = item.is_desk_no;
    line.sellFlg = item.sellFlg;
    line.itemName = data.value("itemName").toString();
    line.num = static_cast<int>(data.value("num").toDouble());
    line.price = data.value("price").toDouble();
    line.staffNo = data.value("staffNo").toString();
    line.remark = data.value("remark").toString();
    line.tagIds = data.value("tagIds").toStringList();
    line.areaId = areaId();
    if (item.serverType == TechnicianLine) {
        line.overFlg = data.value("overFlg").toInt();
        line.pushNo = data.value("pushNo").toString();
        line.serviceType = data.value("serviceType").toInt();
    }
    m_newLines->insertAt(0, line);
    updateAmounts();
    Q_EMIT lineTouched(0);
}

void Module2Vm::addNum(int index, int num)
{
    m_newLines->addNum(index, num);
    updateAmounts();
}

void Module2Vm::subNum(int index, int num)
{
    m_newLines->subNum(index, num);
    updateAmounts();
}

void Module2Vm::changeNum(int index, int num)
{
    if (num < 1)
        return;
    m_newLines->changeAt(index, [num](new_item_struct& line) {
        if (line.status != ChargebackLine)
            line.num = num;
    });
    updateAmounts();
}

void Module2Vm::deleteNewItem(int index)
{
    m_newLines->removeAt(index);
    updateAmounts();
}

void Module2Vm::giveFree(int index)
{
    m_newLines->changeAt(index, [](new_item_struct& line) {
        if (line.status != ChargebackLine)
            line.status = line.status == GiftLine ? NormalLine : GiftLine;
    });
    updateAmounts();
}

void Module2Vm::setRemark(int index, const QString& remark)
{
    m_newLines->changeAt(index, [&](new_item_struct& line) {
        if (line.status != ChargebackLine)
            line.remark = remark;
    });
}

QVariantList Module2Vm::newActions(int index) const
{
    const int status = m_newLines->row(index).status;
    const bool isSale = status != ChargebackLine;
    QVariantList actions{entry("delete", "删除")};
    if (isSale) {
        actions.append(entry("gift", status == GiftLine ? "取消赠送" : "赠送"));
        actions.append(entry("num", "改数量"));
    }
    actions.append(entry("remark", "备注", isSale));
    actions.append(entry("allRemark", "整单备注", isSale));
    return actions;
}

QVariantList Module2Vm::oldActions(int index) const
{
    const GlobalConfig* config = GlobalConfig::getInstance();
    const old_item_struct line = m_oldLines->row(index);
    QVariantList actions;
    if (line.serverType == TicketLine && config->isHaveAuth("0207"))
        actions.append(entry("ticket", "更换套票"));
    if (!line.isPackTicket && config->isHaveAuth(isCustMode() ? "0169" : "0202"))
        actions.append(entry("refund", "退单"));
    if ((line.status == NormalLine || line.status == GiftLine) && config->isHaveAuth("0210"))
        actions.append(entry("reprint", "重印"));
    return actions;
}

int Module2Vm::refundLine(const QString& orderId) const
{
    return m_newLines->find([&](const new_item_struct& line) {
        return line.status == ChargebackLine && line.oldOrderId == orderId;
    });
}

double Module2Vm::checkRefundNum(int index) const
{
    const old_item_struct stored = m_oldLines->row(index);
    return stored.num - qAbs(m_newLines->row(refundLine(stored.orderId)).num);
}

double Module2Vm::askRefund(int index) const
{
    const double most = checkRefundNum(index);
    return require(most > 0, "当前已无可退数量") ? most : 0;
}

void Module2Vm::enterRefund(int index, const QString& num)
{
    const double entered = num.toDouble();
    if (entered >= 1 && require(entered <= checkRefundNum(index), "超过最大可退数量"))
        refund(index, entered, {});
}

void Module2Vm::refund(int index, double num, const QString& remark)
{
    if (num < 1 || !require(num <= checkRefundNum(index), "当前已无可退数量"))
        return;
    const old_item_struct stored = m_oldLines->row(index);
    const int returned = static_cast<int>(num);
    const int present = refundLine(stored.orderId);
    if (present >= 0) {
        m_newLines->changeAt(present, [&](new_item_struct& line) { line.num -= returned; });
    } else {
        new_item_struct line;
        line.itemId = stored.itemId;
        line.itemName = stored.itemName;
        line.price = stored.price;
        line.num = -returned;
        line.minNum = -stored.num;
        line.serverType = stored.serverType;
        line.staffNo = stored.staffNo;
        line.status = ChargebackLine;
        line.areaId = stored.areaId;
        line.oldOrderId = stored.orderId;
        line.createTime = stored.createTime;
        line.remark = remark;
        m_newLines->insertAt(0, line);
    }
    updateAmounts();
    Q_EMIT lineTouched(qMax(0, present));
}

void Module2Vm::updateAmounts()
{
    setNewAmount(m_newLines->amount());
    setTotalAmount(oldAmount() + newAmount());
}
