#include "vm/shared/CardListModel.h"

#include "dto/card/CardRecords.h"
#include "vm/shared/Texts.h"

CardListModel::CardListModel(QObject* parent)
    : RowModel({field("cardId", &card_struct::id),
                {"cardNo", [](const card_struct& card) { return shownText(card.cardNo); }, {}},
                field("backColor", &card_struct::backColor),
                field("foreColor", &card_struct::foreColor),
                field("isChecked", &card_struct::isChecked),
                field("isConsumered", &card_struct::isConsumered),
                field("isSelected", &card_struct::isSelected)},
               parent)
{
    setIsLoaded(true); // cards come with a room or by hand
}

void CardListModel::addOne(const CardDetailDto& card)
{
    card_struct row;
    row.id = card.id();
    row.cardNo = card.cardno();
    append(row);
}

bool CardListModel::hasId(const QString& id) const
{
    return find([&](const card_struct& card) { return card.id == id; }) >= 0;
}

bool CardListModel::hasCardNo(const QString& cardNo) const
{
    return find([&](const card_struct& card) { return card.cardNo == cardNo; }) >= 0;
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
