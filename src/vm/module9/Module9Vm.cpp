#include "vm/module9/Module9Vm.h"

#include "app/MainClass.h"
#include "print/PosPrint.h"
#include "services/Bea01Service.h"
#include "vm/shared/CardLookup.h"
#include "vm/shared/SlipStamp.h"

#include <QJsonArray>

#include <memory>
#include <vector>

namespace {

QJsonObject requestOf(const HandCardData& card)
{
    QJsonArray orderIds;
    for (const order_struct& order : card.pOrderModel()->rows())
        orderIds.append(order.orderId);
    return {{"cardNo", card.cardNo()}, {"cardId", card.cardId()}, {"orderIds", orderIds}};
}

transfer_print_struct slipOf(const QVector<HandCardData*>& cards)
{
    transfer_print_struct slip;
    for (const HandCardData* card : cards) {
        for (const order_struct& order : card->pOrderModel()->rows()) {
            slip.orders.append({order.itemName, order.cardNo, order.num, order.price});
            slip.amount += order.num * order.price;
        }
    }
    return slip;
}

bool isYes(const QString& question)
{
    return MainClass::getInstance()->showMsgConfirm(QStringLiteral("提示"), question) == 1;
}

} // namespace

Module9Vm::Module9Vm(QObject* parent) : ActionVm(parent), m_cards(new HandCardOrderModel(this)) {}

bool Module9Vm::getOrderList(const QStringList& cards)
{
    std::vector<std::unique_ptr<HandCardData>> read;
    for (const QString& cardNo : cards) {
        QString refusal;
        const bool isAnswered =
            fetch(&Bea01Service::getOrderListNew, {{"cardno", cardNo}}, [&](const GetOrderListNew& reply) {
                if (!reply.data() || !reply.data()->cardinfo())
                    return;
                const CardInfoDto& card = *reply.data()->cardinfo();
                if (card.status() != QLatin1String("1"))
                    refusal = QStringLiteral("[%1]手牌不处于在用状态").arg(card.cardno());
                else
                    read.push_back(std::make_unique<HandCardData>(*reply.data()));
            });
        if (!isAnswered || !require(refusal.isEmpty(), qUtf8Printable(refusal)))
            return false;
    }
    double num = 0;
    double amount = 0;
    QVector<HandCardData*> shown;
    for (std::unique_ptr<HandCardData>& card : read) {
        num += card->num();
        amount += card->amount();
        shown.append(card.release());
    }
    setTransNum(num);
    setTransAmount(amount);
    m_cards->replaceAll(shown);
    return true;
}

bool Module9Vm::readAgain()
{
    const QPointer<Module9Vm> self(this);
    if (!getOrderList(m_cards->cardNos()) || !self)
        return false;
    setIsUnsure(false);
    return true;
}

bool Module9Vm::save(const QString& cardNo, const QString& rfid)
{
    return act([&] { return transfer(cardNo, rfid); });
}

bool Module9Vm::transfer(const QString& cardNo, const QString& rfid)
{
    const QPointer<Module9Vm> self(this);
    if (!require(!isUnsure(), "上一次转账没有收到答复，请先重新读取"))
        return false;
    const auto target = cardInUseOrSaid({{"cardno", cardNo}, {"cardUid", rfid}});
    if (!target || !self)
        return false;
    // What is sent and printed is what was shown when the question was asked.
    QJsonArray sources;
    QStringList numbers;
    for (const HandCardData* card : m_cards->rows()) {
        if (card->pOrderModel()->rowCount() == 0)
            continue;
        sources.append(requestOf(*card));
        numbers.append(card->cardNo());
    }
    transfer_print_struct slip = slipOf(m_cards->rows());
    if (!require(!sources.isEmpty(), "请选择需要转账的手牌或消费") ||
        !isAgreed(*target->data(), numbers, slip) || !self)
        return false;
    slip.newCardNo = target->data()->cardno();
    slip.staffCode = SlipStamp::now().staffCode;
    const auto reply = call(&Bea01Service::transferAct, {{"srcCardInfo", sources},
                                                         {"newCardId", target->data()->id()},
                                                         {"newCardNo", target->data()->cardno()}});
    if (self)
        setIsUnsure(!isAnswered(*reply));
    if (!isOkOrShown(*reply))
        return false;
    PosPrint::getInstance()->print(PrintTransfer, QVariant::fromValue(slip), {}, {});
    return true;
}

bool Module9Vm::isAgreed(const CardDetailDto& target, const QStringList& sources,
                         const transfer_print_struct& slip) const
{
    // The page may be gone behind the first question.
    const bool isOfThem = m_cards->cardNos().contains(target.cardno());
    const QString cards = sources.join(QStringLiteral("、"));
    const QString question = QStringLiteral("将手牌【%1】的 %2 笔消费，合计 ¥%3，转入手牌【%4】，确定吗？")
                                 .arg(cards, QString::number(slip.orders.size()),
                                      QString::number(slip.amount, 'f', 2), target.cardno());
    const QString again =
        QStringLiteral("手牌【%1】自己也在被转的手牌之中，确定要转入它吗？").arg(target.cardno());
    return isYes(question) && (!isOfThem || isYes(again));
}
