#pragma once

#include "vm/module1/RoomSettings.h"

// What becomes of a room in use without its guests going elsewhere.

/// What both pages do that make a room of one kind a room of the other.
class ChgKindVm : public RoomPageVm
{
    Q_OBJECT
    CONSTANT_PROPERTY(CardListModel*, pCardListModel, m_cards) // who stays in the room

public:
    /// Lists the cards of the room, in a house without hand cards the room's own. What it needs of the record
    /// it copies; without one there is nothing to list.
    Q_INVOKABLE virtual void init(const QString& roomId, const QString& roomNo, RoomDetailDto* room);
    /// Puts a card on the list, if it may be; else it has been said why not, or the user has declined.
    Q_INVOKABLE virtual void getCardInfo(const QString& cardNo, const QString& rfid) = 0;
    /// Takes a card off the list; which one, the index tells.
    Q_INVOKABLE void deleteCard(int index, const QString& cardNo = {});
    Q_INVOKABLE virtual bool save() = 0;

protected:
    explicit ChgKindVm(QObject* parent) : RoomPageVm(parent), m_cards(new CardListModel(this)) {}

private:
    CardListModel* m_cards;
};

/// Makes a massage room in use a rest room, under a plan of the room.
class MassChgRestVm : public ChgKindVm
{
    Q_OBJECT
    CONSTANT_PROPERTY(PlanListModel*, pPlanListModel, m_plans) // none checked at first

public:
    explicit MassChgRestVm(QObject* parent = nullptr) : ChgKindVm(parent), m_plans(new PlanListModel(this)) {}

    /// Fetches the plans too.
    void init(const QString& roomId, const QString& roomNo, RoomDetailDto* room) override;
    void getCardInfo(const QString& cardNo, const QString& rfid) override;
    Q_INVOKABLE void selectPlan(int index) { m_plans->onChecked(index); }
    bool save() override;

private:
    PlanListModel* m_plans;
};

/// Makes a rest room in use a massage room. One card takes over what was consumed in the room.
class RestChgMassVm : public ChgKindVm
{
    Q_OBJECT
    PROPERTY(int, hours, setHours, RoomSettings::ofStore().defaultTime)

public:
    explicit RestChgMassVm(QObject* parent = nullptr) : ChgKindVm(parent) {}

    void getCardInfo(const QString& cardNo, const QString& rfid) override;
    /// Makes this card the one that the room's consumption goes to.
    Q_INVOKABLE void checkCard(int index) { pCardListModel()->onChecked(index); }
    bool save() override;
};

/// Puts a rest room in use under another plan.
class RestChgPlanVm : public PlanPageVm
{
    Q_OBJECT
    CONSTANT_PROPERTY(PlanListModel*, pPlanListModel, m_plans) // none checked at first

public:
    explicit RestChgPlanVm(QObject* parent = nullptr) : PlanPageVm(parent), m_plans(new PlanListModel(this)) {}

    /// Fetches the room's plans; a refusal is shown.
    Q_INVOKABLE void init(const QString& roomId);
    Q_INVOKABLE void selectPlan(int index) { m_plans->onChecked(index); }
    Q_INVOKABLE bool save();

private:
    PlanListModel* m_plans;
    QString m_roomId;
};

/// Gives a rest room in use more hours.
class RestAddTimeVm : public ActionVm
{
    Q_OBJECT
    PROPERTY(int, hours, setHours, 1) // to be added

public:
    explicit RestAddTimeVm(QObject* parent = nullptr) : ActionVm(parent) {}

    Q_INVOKABLE void init(const QString& roomId) { m_roomId = roomId; }
    Q_INVOKABLE bool save();

private:
    QString m_roomId;
};

/// Changes a room's remark; an empty text clears it.
class RoomRemarkVm : public ActionVm
{
    Q_OBJECT
    PROPERTY(QString, roomId, setRoomId, {})
    PROPERTY(QString, remark, setRemark, {})

public:
    explicit RoomRemarkVm(QObject* parent = nullptr) : ActionVm(parent) {}

    /// Takes room and remark from the record; nothing without one.
    Q_INVOKABLE void init(RoomDetailDto* room);
    Q_INVOKABLE bool save();
};
