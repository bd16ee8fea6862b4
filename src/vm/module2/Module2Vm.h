#pragma once

#include "dto/card/CardOrderRecords.h"
#include "vm/shared/Catalogue.h"
#include "vm/shared/OrderLines.h"

#include <QVariantMap>

/// The till: what a guest, a hand card or a room, consumes. New lines are on the terminal alone until they are
/// saved together; the back end prices and keeps them.
class Module2Vm : public CatalogueVm
{
    Q_OBJECT
    CONSTANT_PROPERTY(NewItemModel*, newItemList, m_newLines)
    CONSTANT_PROPERTY(OldItemModel*, oldItemList, m_oldLines)
    PROPERTY(double, newAmount, setNewAmount, 0)     // yuan, gifts included
    PROPERTY(double, oldAmount, setOldAmount, 0)     // yuan, the back end's sum
    PROPERTY(double, totalAmount, setTotalAmount, 0) // yuan
    PROPERTY(QString, cardNo, setCardNo, {})
    PROPERTY(QString, roomNo, setRoomNo, {})
    PROPERTY(QString, cardId, setCardId, {})
    PROPERTY(QString, cardType, setCardType, {})
    PROPERTY(QString, allRemark, setAllRemark, {}) // on the whole order
    OWNED_PROPERTY(HandCardInfoDto, cardDto, setCardDto)
    OWNED_PROPERTY(RoomInfoDto, roomDto, setRoomDto)
    PROPERTY(bool, hasGuest, setHasGuest, false)
    PROPERTY(bool, isCustMode, setIsCustMode, false)     // the guest is a room
    PROPERTY(bool, isSaveUnsure, setIsSaveUnsure, false) // a save wasn't answered: it may have been done
    PROPERTY(bool, closeFlg, setCloseFlg, false)         // the page is left after a save
    PROPERTY(bool, usedRoomMod, setUsedRoomMod, false)   // the house works without guests' hand cards

public:
    explicit Module2Vm(QObject* parent = nullptr);
    ~Module2Vm() override;

    /// Loads the card, where one is given.
    Q_INVOKABLE void init(const QString& cardNo);
    /// Finds a guest, by a card's serial or number or by a room, in place of the one before.
    Q_INVOKABLE bool getOrderInfo(const QString& rfid, const QString& cardNo, const QString& roomNo);
    /// Reads the guest's stored lines again.
    Q_INVOKABLE bool refreshGuest();
    /// Numbers of the hand cards in a room.
    Q_INVOKABLE QStringList getRoomCards(const QString& roomNo);
    /// Makes the room the guest, or where the house doesn't book on rooms its first hand card.
    Q_INVOKABLE void addRoom(const QString& roomNo);

    /// The first new line with this item, -1 without one.
    Q_INVOKABLE int getNewItemIndex(const QString& itemId) const;
    /// What a tap on a tile means. One more of a line that is there: "merged" is true. Else what a new line
    /// starts with, and in "dialogs" what has to be asked before addNewItem(). Empty when there is no such
    /// tile.
    Q_INVOKABLE QVariantMap tapItem(int index);
    /// A new line of the tile's item, with what tapItem() gave and the dialogs added; it goes on top.
    Q_INVOKABLE void addNewItem(int index, const QVariantMap& data);
    Q_INVOKABLE void addNum(int index, int num);
    Q_INVOKABLE void subNum(int index, int num);
    /// Not of a chargeback line, and not below one.
    Q_INVOKABLE void changeNum(int index, int num);
    Q_INVOKABLE void deleteNewItem(int index);
    /// Makes a gift of a line, or takes that back.
    Q_INVOKABLE void giveFree(int index);
    Q_INVOKABLE void setRemark(int index, const QString& remark);
    Q_INVOKABLE QString remarkOf(int index) const { return m_newLines->row(index).remark; }
    /// What may be done with a new line: {key, text, isEnabled} in the order of its menu.
    Q_INVOKABLE QVariantList newActions(int index) const;

    /// How much of a stored line can still be charged back.
    Q_INVOKABLE double checkRefundNum(int index) const;
    /// The same before the user is asked: with nothing left he is told.
    Q_INVOKABLE double askRefund(int index) const;
    /// The quantity that the user entered; nothing when it is none.
    Q_INVOKABLE void enterRefund(int index, const QString& num);
    Q_INVOKABLE void refund(int index, double num, const QString& remark);
    /// Prints the order that a stored line belongs to again.
    Q_INVOKABLE void reprint(const QString& orderId);
    /// What may be done with a stored line, as with newActions().
    Q_INVOKABLE QVariantList oldActions(int index) const;

    Q_INVOKABLE bool isNeedDeskNo() const { return m_newLines->needsDeskNo(); }
    /// Saves the new lines and prints the slip. When that fails the lines stay.
    Q_INVOKABLE bool save(const QString& deskNo);
    /// Forgets the guest and all lines.
    Q_INVOKABLE void cleanData();

Q_SIGNALS:
    /// A new line came, or one was added to by a tap on its tile.
    void lineTouched(int index);

private:
    bool trySave(const QString& deskNo);
    bool takeGuest(const GetCardOrderDto& guest, bool isCard, bool isRoom);
    void holdGuest(HandCardInfoDto* card, RoomInfoDto* room);
    void updateAmounts();
    int refundLine(const QString& orderId) const;
    QStringList dialogsFor(const item_struct& item) const;

    NewItemModel* m_newLines;
    OldItemModel* m_oldLines;
};
