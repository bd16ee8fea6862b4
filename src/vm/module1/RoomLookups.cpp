#include "vm/module1/RoomLookups.h"

#include "services/Bba01Service.h"
#include "services/Reply.h"

#include <QPointer>
#include <QSet>

void PlanListModel::upate(const Array<RoomPlanDto*>& plans)
{
    QVector<plan_struct> rows;
    for (const RoomPlanDto* plan : plans)
        rows.append({plan->id(), plan->name(), plan->min_time(), plan->min_fee(), false});
    refresh(rows);
}

void PlanListModel::fetch(const QString& roomId)
{
    const QPointer<PlanListModel> self(this);
    const auto reply = call(&Bba01Service::getRoomPlanNew, {{"roomId", roomId}, {"planType", 1}});
    if (isOkOrShown(*reply) && self)
        upate(reply->data());
}

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
