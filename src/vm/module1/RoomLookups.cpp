#include "vm/module1/RoomLookups.h"

#include "vm/shared/Texts.h"

#include <QSet>

namespace {

/// Hours and fee of a plan in words, as far as it has them.
QString termsOf(const plan_struct& plan)
{
    QStringList terms;
    if (plan.min_time > 0)
        terms.append(QStringLiteral("%1小时").arg(plan.min_time));
    if (plan.min_fee > 0)
        terms.append(QStringLiteral("￥") + shortMoney(plan.min_fee));
    return terms.join(QLatin1Char(' '));
}

} // namespace

PlanListModel::PlanListModel(QObject* parent)
    : ChoiceModel({field("planId", &plan_struct::id), field("planName", &plan_struct::name),
                   Role("planTerms", termsOf)},
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

QJsonObject planRequest(const QString& roomId) { return {{"roomId", roomId}, {"planType", 1}}; }

QList<card_struct> cardsOf(const RoomDetailDto& room)
{
    QList<card_struct> cards;
    QSet<QString> seen;
    for (const RoomCardsDto* entry : room.cardlist()) {
        if (seen.contains(entry->cardno()))
            continue;
        seen.insert(entry->cardno());
        card_struct card;
        card.id = entry->cardId();
        card.cardNo = entry->cardno();
        cards.append(card);
    }
    return cards;
}
