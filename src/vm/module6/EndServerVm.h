#pragma once

#include "dto/card/CardOrderRecords.h"
#include "dto/staff/StaffRecords.h"
#include "vm/shared/Catalogue.h"
#include "vm/shared/OrderLines.h"

#include <QDateTime>
#include <QVariantMap>

/// Stops the technician's clock, and books what he did on a hand card.
class EndServerVm : public CatalogueVm
{
    Q_OBJECT
    CONSTANT_PROPERTY(NewItemModel*, newItemList, m_lines)
    PROPERTY(double, newAmount, setNewAmount, 0) // yuan, of all lines
    PROPERTY(QString, cardNo, setCardNo, {})
    PROPERTY(QString, pushNo, setPushNo, {})
    PROPERTY(QString, roomNo, setRoomNo, {}) // where he served
    PROPERTY(QString, staffNo, setStaffNo, {})
    PROPERTY(QString, staffName, setStaffName, {})
    PROPERTY(QString, startTime, setStartTime, {})     // "yyyy-MM-dd HH:mm:ss"
    PROPERTY(QString, timeSpan, setTimeSpan, {})       // minutes from then to the opening of the page
    PROPERTY(QString, unknownCard, setUnknownCard, {}) // what was read last, when no card could be taken by it
    PROPERTY(bool, isStopped, setIsStopped, false)     // the clock stands, but nothing is booked yet
    PROPERTY(bool, isBookingUnsure, setIsBookingUnsure,
             false)                             // a booking wasn't answered: it may have been done
    PROPERTY(int, printCount, setPrintCount, 0) // slips that a booking prints

public:
    enum Stop { WithoutBooking = 1, WithBooking = 2 };

    explicit EndServerVm(QObject* parent = nullptr);

    /// Without a record nothing can be done here.
    Q_INVOKABLE void init(StaffWorkInfoDto* staff);
    /// Takes the hand card with this serial or number.
    Q_INVOKABLE bool getOrderInfo(const QString& rfid, const QString& cardNo);

    /// The line with this item, -1 without one.
    Q_INVOKABLE int getNewItemIndex(const QString& itemId) const;
    /// What a tap on a tile means. One more of a line that is there: "merged" is true. Else what a new line
    /// starts with, and in "dialogs" what has to be asked before addNewItem(). Empty when there is no such
    /// tile.
    Q_INVOKABLE QVariantMap tapItem(int index);
    /// A new line of the tile's item, with what tapItem() gave and the dialogs added; it goes to the end.
    Q_INVOKABLE void addNewItem(int index, const QVariantMap& data);
    Q_INVOKABLE void addNum(int index, int num);
    Q_INVOKABLE void subNum(int index, int num);
    Q_INVOKABLE void deleteNewItem(int index);
    /// What may be done with a line: {key, text, isEnabled} in the order of its menu.
    Q_INVOKABLE QVariantList newActions(int index) const;

    /// Stops the clock, with a booking or without; true when the page is to be left. Once the clock stands, a
    /// further stop only does what is left to do.
    Q_INVOKABLE bool stopServer(int sType);
    Q_INVOKABLE bool stopServer() { return stopServer(WithoutBooking); }

Q_SIGNALS:
    /// A line came, or one was added to by a tap on its tile.
    void lineTouched(int index);

private:
    bool isReadyToStop(int sType) const;
    bool stopClock();
    bool saveBatch();
    QJsonArray requestLines(const QVector<new_item_struct>& lines) const;
    bool takeCard(const GetCardOrderDto& guest);
    void updateAmount() { setNewAmount(m_lines->amount()); }

    NewItemModel* m_lines;
    QString m_staffId;
    QString m_hardCardId;
    QDateTime m_stoppedAt; ///< when the clock was stopped
};
