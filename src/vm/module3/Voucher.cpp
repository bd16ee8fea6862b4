#include "vm/module3/Voucher.h"

#include "common/GlobalConfig.h"
#include "print/PosPrint.h"

#include <QMap>

namespace {

js_item_struct voucherLine(const EndServerItemDto& line)
{
    js_item_struct printed;
    printed.itemName = line.itemName();
    printed.assignType = line.assignType();
    printed.price = line.price();
    return printed;
}

/// Lines of the same item, kind and price are one line; all of them show the whole service's period.
QList<js_item_struct> voucherLines(const Array<EndServerItemDto*>& lines)
{
    QMap<QString, js_item_struct> printed;
    QMap<QString, double> nums;
    for (const EndServerItemDto* line : lines) {
        const QString key =
            QStringLiteral("%1_%2_%3")
                .arg(line->itemName(), line->assignType(), QString::number(line->price(), 'g', 6));
        if (!printed.contains(key))
            printed.insert(key, voucherLine(*line));
        js_item_struct& sum = printed[key];
        sum.amount += line->amount();
        nums[key] += line->num();
        sum.num = qRound(nums[key]);
        sum.startTime = lines.at(0)->startTime();
        sum.endTime = lines.at(lines.size() - 1)->endTime();
    }
    return printed.values();
}

} // namespace

void printVouchers(const EndServerDto& end)
{
    end_server_print_struct slip;
    slip.cardNo = end.cardNo();
    slip.roomNo = end.roomNo();
    slip.staffNo = end.staffNo();
    slip.workNo = end.staffNo();
    slip.surplus = end.surplus();
    slip.items = voucherLines(end.printlist());
    const int copies = GlobalConfig::getInstance()->stop_server_print_count;
    for (int copy = 0; copy < copies; ++copy)
        PosPrint::getInstance()->print(PrintTechnicianEnd, QVariant::fromValue(slip), {}, {});
}
