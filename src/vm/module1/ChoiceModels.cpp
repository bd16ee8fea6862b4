#include "vm/module1/ChoiceModels.h"

namespace {

template <typename Row>
QString backColorOf(const Row& row)
{
    return row.isChecked ? checkedBackColor() : uncheckedBackColor();
}

template <typename Row>
QString foreColorOf(const Row& row)
{
    return row.isChecked ? checkedForeColor() : uncheckedForeColor();
}

} // namespace

QString uncheckedBackColor() { return QStringLiteral("transparent"); }
QString uncheckedForeColor() { return QStringLiteral("#555555"); }
QString checkedBackColor() { return QStringLiteral("#398FFF"); }
QString checkedForeColor() { return QStringLiteral("white"); }

PlanListModel::PlanListModel(QObject* parent)
    : CheckOneModel({field("planId", &plan_struct::id),
                     field("planName", &plan_struct::name),
                     {"backColor", backColorOf<plan_struct>, {}},
                     {"foreColor", foreColorOf<plan_struct>, {}},
                     field("isChecked", &plan_struct::isChecked)},
                    parent)
{
}

void PlanListModel::upate(const Array<RoomPlanDto*>& plans)
{
    QVector<plan_struct> rows;
    for (const RoomPlanDto* plan : plans)
        rows.append({plan->id(), plan->name(), plan->min_time(), plan->min_fee(), false});
    refresh(rows);
}

OccupyListModel::OccupyListModel(QObject* parent)
    : CheckOneModel({field("occupyId", &occupy_struct::id),
                     field("occupyName", &occupy_struct::type_name),
                     {"backColor", backColorOf<occupy_struct>, {}},
                     {"foreColor", foreColorOf<occupy_struct>, {}},
                     field("isChecked", &occupy_struct::isChecked)},
                    parent)
{
}

void OccupyListModel::upate(const Array<RoomOccupyDto*>& kinds)
{
    QVector<occupy_struct> rows;
    for (const RoomOccupyDto* kind : kinds)
        rows.append({kind->id(), kind->type_name(), false});
    refresh(rows);
}

TempDataModel::TempDataModel(QObject* parent)
    : CheckOneModel({field("tempId", &temp_struct::tempId),
                     field("tempName", &temp_struct::tempName),
                     {"backColor", backColorOf<temp_struct>, {}},
                     {"foreColor", foreColorOf<temp_struct>, {}},
                     field("isChecked", &temp_struct::isChecked),
                     field("isSelected", &temp_struct::isSelected)},
                    parent)
{
}

void TempDataModel::onSelected(int index)
{
    changeAt(index, [](temp_struct& entry) { entry.isSelected = !entry.isSelected; });
}
