#include "vm/module7/Module7Vm.h"

#include "app/MainClass.h"
#include "services/Baa01Service.h"

namespace {

/// A question that nobody answers mustn't keep the next guest from the counter.
constexpr int questionMs = 30000;

constexpr CounterWords selfEntryWords{"已录入", "已录入过", "未录入"};

bool isWantedAgain(const CardSelfOrderDto& card)
{
    const QString question =
        QStringLiteral("手牌【%1】\r\n门票数量[ <font color='red'><b>%2</b></font> ]</br>已录入数[ <font "
                       "color='red'><b>%3</b></font> ]");
    return MainClass::getInstance()->showMsgConfirm(
               QStringLiteral("提示"),
               question.arg(card.cardno(), QString::number(card.ticketNum()), QString::number(card.selfNum())),
               questionMs) == 1;
}

} // namespace

CardOrderModel::CardOrderModel(QObject* parent)
    : RowModel(
          {field("cardNo", &card_order_struct::cardNo), field("createTime", &card_order_struct::createTime)},
          parent)
{
}

void CardOrderModel::update(const Array<TrmSelfOrderDetailDto*>& entries)
{
    QVector<card_order_struct> rows;
    for (const TrmSelfOrderDetailDto* entry : entries)
        rows.append({entry->cardNo(), entry->createtime()});
    replace(rows);
}

CardTypeModel::CardTypeModel(QObject* parent)
    : RowModel({field("typeName", &card_type_struct::typeName), field("sumNum", &card_type_struct::sumNum)},
               parent)
{
}

void CardTypeModel::update(const Array<SelfCardSumDto*>& sums)
{
    QVector<card_type_struct> rows;
    for (const SelfCardSumDto* sum : sums)
        rows.append({sum->cardTypeName(), sum->sumNum()});
    replace(rows);
}

Module7Vm::Module7Vm(QObject* parent)
    : CounterVm(selfEntryWords, parent), m_orders(new CardOrderModel(this)), m_types(new CardTypeModel(this))
{
    m_reader.listenToCards();
    if (const TerminalDto* terminal = GlobalConfig::getInstance()->terminalInfo())
        setItemName(terminal->selfItemName());
}

void Module7Vm::init()
{
    const QPointer<Module7Vm> self(this);
    getSum();
    if (self)
        getDetail();
}

void Module7Vm::getSum()
{
    fetch(&Baa01Service::getTrmSelfOrderSum, QJsonObject(), [this](const GetTrmSelfOrderSum& reply) {
        if (!reply.data() || !reply.data()->sumInfo())
            return;
        setTotalCount(reply.data()->sumInfo()->sumNum());
        m_types->update(reply.data()->cardTypeSumInfo());
    });
}

void Module7Vm::getDetail()
{
    fetch(&Baa01Service::getTrmSelfOrderDetail, QJsonObject(),
          [this](const GetTrmSelfOrderDetail& reply) { m_orders->update(reply.data()); });
}

void Module7Vm::doConsume(const QString& cardNo, const QString& rfid)
{
    act([&] {
        const QString error = enter(cardNo, rfid);
        if (!error.isEmpty())
            MyMessage::getInstance()->showError(error);
        return error.isEmpty();
    });
}

/// What there is to complain of; the page may be gone then.
QString Module7Vm::enter(const QString& cardNo, const QString& rfid)
{
    const QPointer<Module7Vm> self(this);
    if (cardNo.isEmpty() && rfid.isEmpty())
        return refused("手牌号不能为空");
    QJsonObject asked;
    if (!cardNo.isEmpty())
        asked.insert("cardno", cardNo);
    if (!rfid.isEmpty())
        asked.insert("cardUid", rfid);
    const auto reply = call(&Baa01Service::getCardSelfOrder, asked);
    if (!self)
        return {};
    if (!isOk(*reply)) {
        showRefused(reply->msg());
        return reply->msg();
    }
    return reply->data() ? enter(*reply->data()) : refused("未能获取到手牌信息");
}

QString Module7Vm::enter(const CardSelfOrderDto& card)
{
    const QPointer<Module7Vm> self(this);
    if (card.selfNum() > 0) {
        showAgain(cardText(card.cardno()));
        if (!isWantedAgain(card) || !self)
            return {};
        clearAnswer();
    }
    const auto reply = call(&Baa01Service::selfInput, {{"id", card.id()}});
    if (!self)
        return isOk(*reply) ? QString() : reply->msg();
    if (!isOk(*reply))
        return refused(*reply);
    MyMessage::getInstance()->showOk(QStringLiteral("操作成功"));
    showTaken(cardText(card.cardno()));
    init();
    return {};
}

QString Module7Vm::refused(const ApiRes& reply)
{
    showRefusal(reply);
    return reply.msg();
}

QString Module7Vm::refused(const char* reason)
{
    showRefused(QString::fromUtf8(reason));
    return QString::fromUtf8(reason);
}
