#pragma once

#include "dto/room/RoomDetailRecords.h"
#include "vm/module1/ChoiceModels.h"

#include <QJsonArray>

class CardDetailDto;

/// A hand card on a room page.
struct card_struct
{
    QString id;
    QString cardNo;
    bool isChecked = false;    ///< the one card that stands out, such as the one that consumption goes to
    bool isConsumered = false; ///< consumption is booked on it
    bool isSelected = false;   ///< one of those that an action is for
    QString backColor = uncheckedBackColor();
    QString foreColor = uncheckedForeColor();
};

/// The hand cards of a room page. An index out of range changes nothing.
class CardListModel : public CheckOneModel<card_struct>
{
    Q_OBJECT

public:
    explicit CardListModel(QObject* parent = nullptr);

    QVector<card_struct> getAll() const { return rows(); }
    void upate(const QList<card_struct>& cards) { refresh(QVector<card_struct>::fromList(cards)); }
    void addOne(const card_struct& card) { append(card); }
    void deleteOne(int index) { removeAt(index); }
    /// Marks this card alone.
    Q_INVOKABLE void onChecked(int index) { checkOnly(index); }
    /// Toggles this card.
    Q_INVOKABLE void onSelected(int index);

    bool hasId(const QString& id) const;
    bool hasCardNo(const QString& cardNo) const;
    /// The ids of all cards, in their order.
    QJsonArray ids() const;
    /// The ids of the selected cards, in their order.
    QJsonArray selectedIds() const;
};

/// A card that was looked up.
card_struct cardOf(const CardDetailDto& card);

/// The cards of a room's detail, each number once in the order of first appearance: the list has a card as
/// often as it has consumption lines.
QList<card_struct> cardsOf(const RoomDetailDto& room);
