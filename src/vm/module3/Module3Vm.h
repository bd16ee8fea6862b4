#pragma once

#include "dto/staff/StaffRecords.h"
#include "vm/shared/ActionVm.h"

/// The technician's own clock: finds him by his number and tells which page is his, that of the start or that
/// of the end of a service. The back end owns his state.
class Module3Vm : public ActionVm
{
    Q_OBJECT
    Q_PROPERTY(QList<ServerItemDto*> pServerList READ pServerList NOTIFY pServerListChanged)
    Q_PROPERTY(QList<OnServerItemDto*> pOnServerList READ pOnServerList NOTIFY pOnServerListChanged)
    PROPERTY(int, operStatus, setOperStatus, 0) // a ClockPage
    OWNED_PROPERTY(StaffDetailDto, pStaffDetail, setPStaffDetail)

public:
    enum ClockPage { Loading, StartPage, EndPage };
    /// His states as the back end has them; any other bars him.
    enum WorkStatus { Waiting = 1, OnService = 2, Assigned = 6 };

    explicit Module3Vm(QObject* parent = nullptr);
    ~Module3Vm() override;

    /// Items that he can serve, and the lines of his running service; owned.
    QList<ServerItemDto*> pServerList() const { return m_items; }
    QList<OnServerItemDto*> pOnServerList() const { return m_lines; }

    /// Reads him and his items. When that fails the page stays as it is.
    Q_INVOKABLE void init(const QString& staffNo);

Q_SIGNALS:
    void pServerListChanged();
    void pOnServerListChanged();
    /// The page of operStatus is to be shown.
    void setLoaderSignal();
    /// The module is to be left.
    void onCloseSignal();

private:
    void takeStaff(const QString& staffNo, const StaffDetailInfoDto* found);
    void takeItems(const QList<ServerItemDto*>& items, const Array<OnServerItemDto*>& lines);

    QList<ServerItemDto*> m_items;
    QList<OnServerItemDto*> m_lines;
};

/// The technician of an answer; null when it holds none, which has been said.
StaffDetailDto* foundStaffOrSaid(const StaffDetailInfoDto* found, const QString& staffNo);
