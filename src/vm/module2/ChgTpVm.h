#pragma once

#include "common/RowModel.h"
#include "dto/sales/TicketRecords.h"
#include "vm/shared/ActionVm.h"

/// A package ticket that a stored line may be changed to.
struct tp_struct
{
    QString name;
    QString id;
    double price = 0; ///< yuan
    bool isPackTicket = false;
    bool isSelected = false;
};

class ChgTpModel : public RowModel<tp_struct>
{
    Q_OBJECT

public:
    explicit ChgTpModel(QObject* parent = nullptr);

    void update(const Array<TpInfoDto*>& tickets);
    /// Makes this row the only selected one.
    void onSelect(int index);
};

/// Changes the package ticket of a stored line.
class ChgTpVm : public ActionVm
{
    Q_OBJECT
    CONSTANT_PROPERTY(ChgTpModel*, pTpList, m_tickets)
    PROPERTY(bool, isBtnEnabled, setIsBtnEnabled, true)

public:
    explicit ChgTpVm(QObject* parent = nullptr);

    /// Loads the tickets that the card's type allows.
    Q_INVOKABLE void init(const QString& cardId, const QString& cardType, const QString& orderId, int operType);
    Q_INVOKABLE void select(int index) { m_tickets->onSelect(index); }
    Q_INVOKABLE bool save();

private:
    ChgTpModel* m_tickets;
    QString m_cardId;
    QString m_orderId;
    int m_operType = 0;
};
