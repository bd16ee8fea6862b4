#pragma once

#include "dto/card/CardRecords.h"
#include "print/PrintRecords.h"
#include "vm/module9/HandCardOrders.h"
#include "vm/shared/ActionVm.h"

/// Moves what is on one or more hand cards to another, which then pays for all.
class Module9Vm : public ActionVm
{
    Q_OBJECT
    CONSTANT_PROPERTY(HandCardOrderModel*, pHandCardOrderModel, m_cards)
    PROPERTY(double, transNum, setTransNum, 0)       // quantity of all lines
    PROPERTY(double, transAmount, setTransAmount, 0) // of all lines, yuan
    // The last transfer wasn't answered: whether the lines moved is known once they were read again.
    PROPERTY(bool, isUnsure, setIsUnsure, false)

public:
    explicit Module9Vm(QObject* parent = nullptr);

    /// Reads what is on the cards; false, and nothing changes, when one can't be read or isn't in use.
    Q_INVOKABLE bool getOrderList(const QStringList& cards);
    /// Reads the shown cards again.
    Q_INVOKABLE bool readAgain();
    /// Moves the shown lines to a card, by its number or by its serial, once the user agrees.
    Q_INVOKABLE bool save(const QString& cardNo, const QString& rfid);

private:
    bool transfer(const QString& cardNo, const QString& rfid);
    bool isAgreed(const CardDetailDto& target, const QStringList& sources,
                  const transfer_print_struct& slip) const;

    HandCardOrderModel* m_cards;
};
