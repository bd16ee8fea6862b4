#pragma once

#include "dto/call/AssessRecords.h"
#include "vm/module4/QueneWaitModel.h"
#include "vm/shared/ActionVm.h"
#include "vm/shared/EventMarks.h"
#include "vm/shared/ReaderListener.h"

#include <QSet>

Q_DECLARE_METATYPE(assess_info_struct)
Q_DECLARE_METATYPE(assess_order_struct)

/// A bath helper's station: who waits, who is called, and what the helper does with them. The queue is the back
/// end's; several terminals work it, and each shows what the back end said last. Of what is to be announced
/// each speaks the kinds of hand cards that are its own.
///
/// Who acts comes as user, pwd and rfid: a staff card's serial alone, else number and password.
class Module4Vm : public ActionVm
{
    Q_OBJECT
    CONSTANT_PROPERTY(QueneWaitModel*, pQueneWaitModel, m_waiting)
    CONSTANT_PROPERTY(QueneWaitModel*, pQueneModel, m_called)
    PROPERTY(int, waitCount, setWaitCount, 0)
    PROPERTY(int, callCount, setCallCount, 0)
    PROPERTY(bool, isMultiCall, setIsMultiCall, false) // several may be called at once
    PROPERTY(QString, assessHandId, setAssessHandId, {})
    PROPERTY(QString, assessStaffId, setAssessStaffId, {})
    PROPERTY(QList<assess_info_struct>, assessInfoList, setAssessInfoList, {})
    PROPERTY(QList<assess_order_struct>, assessOrderList, setAssessOrderList, {})

public:
    explicit Module4Vm(QObject* parent = nullptr);

    /// Fetches the lists.
    Q_INVOKABLE void init();
    /// Whether the action of this code is done without asking who acts.
    Q_INVOKABLE bool isNeedStaff(const QString& code) const { return m_freeActions.contains(code); }

    // Changes of the queue. None touches the lists: the event that follows does.

    Q_INVOKABLE void cancelWait(const QString& id, const QString& user, const QString& pwd,
                                const QString& rfid);
    Q_INVOKABLE void repeat(const QString& id, const QString& user, const QString& pwd, const QString& rfid);
    Q_INVOKABLE void cross(const QString& id, const QString& user, const QString& pwd, const QString& rfid);
    /// Takes a called card off the list.
    Q_INVOKABLE void cancel(const QString& id, const QString& user, const QString& pwd, const QString& rfid);
    Q_INVOKABLE void dirCall(const QString& id, const QString& user, const QString& pwd, const QString& rfid);
    Q_INVOKABLE void callNext(int num, const QString& user, const QString& pwd, const QString& rfid);
    Q_INVOKABLE void startServer(const QString& user, const QString& pwd, const QString& rfid);
    Q_INVOKABLE void startServerDir(const QString& cardNo, const QString& user, const QString& pwd,
                                    const QString& rfid);
    /// A card that was read (rfid) is sent whatever else is under way: its guest has swiped it and gone on.
    Q_INVOKABLE void addQuene(const QString& cardNo, const QString& rfid, const QString& user,
                              const QString& pwd, const QString& staffUid);
    /// The service of a card is over: beginConsumeSignal() follows, where this terminal enters consumption.
    Q_INVOKABLE void complate(const QString& cardNo, const QString& rfid, const QString& user,
                              const QString& pwd, const QString& staffUid);
    /// Looks for what the card's guest may grade: assessSignal() follows, where there is anything.
    Q_INVOKABLE void assess(const QString& cardNo, const QString& rfid, const QString& user, const QString& pwd,
                            const QString& staffUid);

    void readingExec(QString cardId) override;
    void readingHandExec(QString cardId) override { readingExec(cardId); }

public Q_SLOTS:
    void timeEvent() { m_marks.tick(); }
    void mqttEvent(const QString& topic, const QString& msg);

Q_SIGNALS:
    /// The consumption of the card is to be entered, by this person.
    void beginConsumeSignal(const QString& cardNo, const QString& user, const QString& pwd, const QString& rfid,
                            const QString& staffId);
    void assessSignal(const QString& cardId, const QString& staffId, const QList<assess_info_struct>& grades,
                      const QList<assess_order_struct>& orders);

private:
    void fetchMarked();
    void getQuene();
    bool takeAssessment(const AssessListDto* found);
    void announceNext();
    void announce(const QString& key);

    QueneWaitModel* m_waiting;
    QueneWaitModel* m_called;
    QSet<QString> m_spokenKinds; ///< of hand cards
    QSet<QString> m_freeActions;
    QStringList m_keys; ///< of what is still to be announced, the oldest first
    QTimer m_announcing;
    bool m_isAnnouncing = false;
    int m_putOffs = 0; ///< of the next announcement
    EventMarks m_marks;
    ReaderListener m_cards{this};
};
