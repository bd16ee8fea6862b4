#pragma once

#include "vm/shared/ChoiceModels.h"

#include <QJsonArray>

class CardDetailDto;

/// A hand card on a page.
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

/// The hand cards of a page. An index out of range changes nothing.
class CardListModel : public RowModel<card_struct>
{
    Q_OBJECT

public:
    explicit CardListModel(QObject* parent = nullptr);

    void upate(const QList<card_struct>& cards) { refresh(QVector<card_struct>::fromList(cards)); }
    void addOne(const CardDetailDto& card);
    void deleteOne(int index) { removeAt(index); }

    bool hasId(const QString& id) const;
    bool hasCardNo(const QString& cardNo) const;
    /// The ids of all cards, in their order.
    QJsonArray ids() const;
    /// The ids of the selected cards, in their order.
    QJsonArray selectedIds() const;
    /// The checked card's id, empty without one.
    QString checkedId() const { return row(checkedIndex()).id; }
};
