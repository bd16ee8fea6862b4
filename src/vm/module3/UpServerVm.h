#pragma once

#include "dto/card/CardOrderRecords.h"
#include "vm/module3/ClockModels.h"
#include "vm/shared/ActionVm.h"
#include "vm/shared/OrderLines.h"

/// Starts a service: the one that the technician was assigned, else one that he enters himself.
class UpServerVm : public ActionVm
{
    Q_OBJECT
    CONSTANT_PROPERTY(ServerItemModel*, pServerModel, m_items)
    CONSTANT_PROPERTY(ServerTypeModel*, pTypeModel, m_kinds)
    CONSTANT_PROPERTY(OldItemModel*, oldItemList, m_consumed) // what is on the hand card so far
    PROPERTY(int, itemColumns, setItemColumns, 8)
    PROPERTY(QString, staffNo, setStaffNo, {})
    PROPERTY(QString, staffName, setStaffName, {})
    PROPERTY(QString, cardNo, setCardNo, {})
    PROPERTY(QString, roomNo, setRoomNo, {})               // may stay empty; the back end checks it
    PROPERTY(bool, isTypeEnabled, setIsTypeEnabled, false) // he chooses the clock kind himself
    PROPERTY(bool, isAssigned, setIsAssigned, false)       // an order waits for him
    PROPERTY(QString, summary, setSummary, {})             // what would be started
    PROPERTY(QString, unknownCard, setUnknownCard, {}) // what was read last, when no card could be taken by it

public:
    explicit UpServerVm(QObject* parent = nullptr);

    Q_INVOKABLE void init(StaffDetailDto* staff, const QList<ServerItemDto*>& items);
    /// 0 when something is missing, which has been said, 2 when the pusher has to be asked for, else 1.
    Q_INVOKABLE int checkPushNo();
    /// Starts the service.
    Q_INVOKABLE bool save(const QString& pushNo);
    /// Takes the hand card with this serial or number.
    Q_INVOKABLE bool getOrderInfo(const QString& rfid, const QString& cardNo);

private:
    void summarize();
    bool hasItem() const;
    bool hasCard() const;
    bool takeCard(const GetCardOrderDto& guest);
    bool start(const QString& pushNo);

    ServerItemModel* m_items;
    ServerTypeModel* m_kinds;
    OldItemModel* m_consumed;
    QString m_orderId; ///< of the pending order, empty without one
    QString m_staffId;
};
