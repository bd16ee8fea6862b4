#include "vm/module2/SellSumModels.h"

namespace {

using SumLine = sell_sum_item_struct;
using SumArea = SellSumAreaVm*;

/// Adds the lines and gives their commission.
double addLines(const Array<SellSumItemDto*>& from, QVector<SumLine>& lines)
{
    double commission = 0;
    for (const SellSumItemDto* line : from) {
        lines.append({line->name(), line->unit(), line->statusVal(), line->num(), line->price(), line->amount(),
                      line->performerAmt(), false});
        commission += line->performerAmt();
    }
    return commission;
}

SumLine summaryOf(const SellParentDto& group)
{
    SumLine sum;
    sum.itemName = QStringLiteral("=【%1】=").arg(group.parentName());
    sum.isParent = true;
    for (const SellSumItemDto* line : group.orderList()) {
        sum.num += line->num();
        sum.amount += line->amount();
        sum.tcAmt += line->performerAmt();
    }
    return sum;
}

} // namespace

SellSumItemModel::SellSumItemModel(QObject* parent)
    : RowModel({field("itemName", &SumLine::itemName), field("unit", &SumLine::unit),
                field("num", &SumLine::num), field("price", &SumLine::price), field("amount", &SumLine::amount),
                field("tcAmt", &SumLine::tcAmt), field("isParent", &SumLine::isParent)},
               parent)
{
}

SellSumAreaVm::SellSumAreaVm(const SellSumDto& area)
    : m_areaName(area.areaName()), m_totalNum(area.totalNum()), m_totalAmount(area.totalAmount()),
      m_lines(new SellSumItemModel(this))
{
    QVector<SumLine> lines;
    double commission = addLines(area.orderlist(), lines);
    if (lines.isEmpty()) {
        for (const SellParentDto* group : area.parentList()) {
            if (group->orderList().isEmpty())
                continue;
            commission += addLines(group->orderList(), lines);
            lines.append(summaryOf(*group));
        }
    }
    setTcAmt(commission);
    m_lines->replace(lines);
}

sell_sum_area_print_struct SellSumAreaVm::printed() const
{
    sell_sum_area_print_struct area;
    area.areaName = areaName();
    area.totalNum = totalNum();
    area.totalAmount = totalAmount();
    for (const SumLine& line : m_lines->rows())
        area.orders.append({line.itemName, line.num, line.amount, line.isParent});
    return area;
}

SellSumModel::SellSumModel(QObject* parent)
    : ObjectModel(
          {{"areaName", [](const SumArea& area) { return area->areaName(); }},
           {"totalNum", [](const SumArea& area) { return area->totalNum(); }},
           {"totalAmount", [](const SumArea& area) { return area->totalAmount(); }},
           {"orderList", [](const SumArea& area) { return QVariant::fromValue(area->pSellItemModel()); }},
           {"tcAmt", [](const SumArea& area) { return area->tcAmt(); }}},
          parent)
{
}

void SellSumModel::update(const Array<SellSumDto*>& areas)
{
    QVector<SellSumAreaVm*> made;
    for (const SellSumDto* area : areas)
        made.append(new SellSumAreaVm(*area));
    replaceAll(made);
}
