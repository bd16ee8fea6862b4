#include "vm/module2/SaleSlip.h"

#include "common/GlobalConfig.h"
#include "dto/card/CardOrderRecords.h"
#include "print/PosPrint.h"

#include <algorithm>

namespace {

enum OrderMode : int { CardOrder = 1, RoomOrder = 2 };

void putIfPresent(QString& field, const QString& value)
{
    if (!value.isEmpty())
        field = value;
}

consumer_print_struct slipOfOperator(OrderMode mode)
{
    const UserDto& user = *GlobalConfig::getInstance()->userInfo();
    consumer_print_struct slip;
    slip.orderMode = mode;
    slip.staffCode = user.code();
    slip.staffName = user.name();
    return slip;
}

bool isSlipWanted(const QVector<new_item_struct>& lines)
{
    const TerminalDto* terminal = GlobalConfig::getInstance()->terminalInfo();
    return !terminal || !terminal->isChargebackPrint() ||
           std::any_of(lines.begin(), lines.end(),
                       [](const new_item_struct& line) { return line.status == ChargebackLine; });
}

} // namespace

void printSale(const BatchUpdateOrder& reply, const QVector<new_item_struct>& lines,
               const HandCardInfoDto* card, const QString& remark)
{
    const BatchUpdateDto* order = reply.data();
    if (!order || !isSlipWanted(lines))
        return;
    consumer_print_struct slip = slipOfOperator(card ? CardOrder : RoomOrder);
    slip.area = order->orderArea();
    slip.orderDate = order->orderDate();
    if (card)
        slip.cardNo = card->cardno();
    putIfPresent(slip.deskNo, order->deskNo());
    putIfPresent(slip.roomNo, order->roomNo());
    slip.remark = remark;
    slip.items = slipLines(lines, reply.authNo(), reply.authName());
    PosPrint::getInstance()->print(PrintOrder, QVariant::fromValue(slip), {}, {});
}

void printSaleAgain(const Array<ReprintDto*>& lines)
{
    consumer_print_struct slip = slipOfOperator(CardOrder);
    for (const ReprintDto* line : lines) {
        consumer_item_struct printed;
        printed.itemName = line->itemName();
        printed.num = line->num();
        printed.amount = line->total();
        slip.items.append(printed);
        putIfPresent(slip.area, line->areaName());
        putIfPresent(slip.orderDate, line->createtime());
        putIfPresent(slip.cardNo, line->cardno());
    }
    if (!slip.items.isEmpty())
        PosPrint::getInstance()->print(PrintOrderAgain, QVariant::fromValue(slip), {}, {});
}
