#pragma once

#include "common/RowModel.h"
#include "vm/shared/ActionVm.h"

/// A hand card in use.
struct hand_card_item_struct
{
    QString cardNo;
    QString createTime;
    QString remark;
    double amount = 0; ///< yuan
};

class HandCardItemModel : public RowModel<hand_card_item_struct>
{
    Q_OBJECT

public:
    explicit HandCardItemModel(QObject* parent = nullptr);
};

/// Every hand card in use, men and women apart.
class AllInCardsVm : public ActionVm
{
    Q_OBJECT
    CONSTANT_PROPERTY(HandCardItemModel*, pManModel, m_men)
    CONSTANT_PROPERTY(HandCardItemModel*, pFemaleModel, m_women)
    PROPERTY(bool, isSortCardNo, setIsSortCardNo, true) // else by the time of coming
    PROPERTY(QString, totalInfo, setTotalInfo, {})

public:
    explicit AllInCardsVm(QObject* parent = nullptr);

    Q_INVOKABLE void init() { query(); }
    Q_INVOKABLE void query();

private:
    HandCardItemModel* m_men;
    HandCardItemModel* m_women;
};
