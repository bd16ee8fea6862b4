#pragma once

#include "vm/module3/ClockModels.h"
#include "vm/shared/ActionVm.h"

/// A running service: clocks are added, changed, taken back, and the whole is stopped. After each change the
/// technician is read again, since the back end may have moved him on.
class DownServerVm : public ActionVm
{
    Q_OBJECT
    CONSTANT_PROPERTY(ServerItemModel*, pServerModel, m_items)
    CONSTANT_PROPERTY(ServerTypeModel*, pTypeModel, m_kinds)
    CONSTANT_PROPERTY(OnServerItemModel*, pOnServerModel, m_lines)
    PROPERTY(bool, isTypeEnabled, setIsTypeEnabled, false) // these six by the operator's rights
    PROPERTY(bool, isAddEnabled, setIsAddEnabled, false)
    PROPERTY(bool, isChgEnabled, setIsChgEnabled, false)
    PROPERTY(bool, isRefundEnabled, setIsRefundEnabled, false)
    PROPERTY(bool, isCardEnabled, setIsCardEnabled, false)
    PROPERTY(bool, isStopEnabled, setIsStopEnabled, false)
    PROPERTY(QString, staffNo, setStaffNo, {})
    PROPERTY(QString, staffName, setStaffName, {})
    PROPERTY(QString, cardNo, setCardNo, {})
    PROPERTY(QString, roomNo, setRoomNo, {})
    PROPERTY(int, surplus, setSurplus, 0)          // minutes left, negative when over
    PROPERTY(QString, fetchedAt, setFetchedAt, {}) // time of day that surplus is of
    PROPERTY(int, printCount, setPrintCount, 0)    // vouchers that stopping prints
    PROPERTY(int, itemColumns, setItemColumns, 8)
    PROPERTY(bool, isSelectedItem, setIsSelectedItem, false) // a running line was chosen

public:
    explicit DownServerVm(QObject* parent = nullptr);

    Q_INVOKABLE void init(StaffDetailDto* staff, const QList<ServerItemDto*>& items,
                          const QList<OnServerItemDto*>& lines);
    /// Puts the service on another hand card.
    Q_INVOKABLE void chgHandCard(const QString& cardNo);
    /// Adds so many clocks of an item, at least one.
    Q_INVOKABLE void addServer(const QString& itemId, int num);
    /// Another clock kind; nothing happens when it is in force already.
    Q_INVOKABLE void chgAssignType(int index);
    /// Takes a running line back.
    Q_INVOKABLE void chargeBack(const QString& orderId);
    /// Puts another item on the chosen line.
    Q_INVOKABLE void changeServer(const QString& itemId);
    /// Ends the service and prints the vouchers; true when the page is to be left.
    Q_INVOKABLE bool stopServer();
    /// Chooses a running line.
    Q_INVOKABLE void onChecked(int index);

Q_SIGNALS:
    /// The page is to be left.
    void onCloseSignal();

private:
    /// Makes the change, reads the technician again, and tells that it was made.
    template <typename Endpoint>
    void change(Endpoint endpoint, const QJsonObject& data, const char* done);
    void updateStaffInfo();
    bool readStaff();
    QJsonObject withRoom(QJsonObject data) const;

    ServerItemModel* m_items;
    ServerTypeModel* m_kinds;
    OnServerItemModel* m_lines;
    QString m_orderId; ///< of the running service
    QString m_staffId;
    QString m_hardCardId;
    QString m_pushId;
    QString m_roomId;
    QString m_workTypeId;
    int m_type = 0; ///< ClockKind in force
};
