#include "vm/module1/CardListModel.h"

#include "dto/card/CardRecords.h"

#include <QSet>

#include <algorithm>

CardListModel::CardListModel(QObject* parent)
    : CheckOneModel({field("cardId", &card_struct::id), field("cardNo", &card_struct::cardNo),
                     field("backColor", &card_struct::backColor), field("foreColor", &card_struct::foreColor),
                     field("isChecked", &card_struct::isChecked),
                     field("isConsumered", &card_struct::isConsumered),
                     field("isSelected", &card_struct::isSelected)},
                    parent)
{
}

void CardListModel::onSelected(int index)
{
    changeAt(index, [](card_struct& card) { card.isSelected = !card.isSelected; });
}

bool CardListModel::hasId(const QString& id) const
{
    const QVector<card_struct> cards = rows();
    return std::any_of(cards.begin(), cards.end(), [&](const card_struct& card) { return card.id == id; });
}

bool CardListModel::hasCardNo(const QString& cardNo) const
{
    const QVector<card_struct> cards = rows();
    return std::any_of(cards.begin(), cards.end(),
                       [&](const card_struct& card) { return card.cardNo == cardNo; });
}

QJsonArray CardListModel::ids() const
{
    QJsonArray ids;
    for (const card_struct& card : rows())
        ids.append(card.id);
    return ids;
}

QJsonArray CardListModel::selectedIds() const
{
    QJsonArray ids;
    for (const card_struct& card : rows()) {
        if (card.isSelected)
            ids.append(card.id);
    }
    return ids;
}

card_struct cardOf(const CardDetailDto& card)
{
    card_struct row;
    row.id = card.id();
    row.cardNo = card.cardno();
    return row;
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
