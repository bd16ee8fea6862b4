#pragma once

#include "vm/module1/RoomSettings.h"

/// What both pages do that move a room in use to an empty one. The room ids are the back end's.
class ChgRoomVm : public PlanPageVm
{
    Q_OBJECT
    PROPERTY(bool, isNeedClean, setIsNeedClean, false)          // the room that is left goes to cleaning
    PROPERTY(QString, roomId, setRoomId, {})                    // the room that is left
    CONSTANT_PROPERTY(TempDataModel*, pEmptyRoomModel, m_rooms) // the checked one is gone to

public:
    Q_INVOKABLE void init(const QString& roomId);
    /// Fetches the empty rooms whose number fits, all for an empty text, and chooses the first. A refusal
    /// leaves the list as it is.
    Q_INVOKABLE void getRoomInfo(const QString& roomNo);
    Q_INVOKABLE virtual void selectRoom(int index) { m_rooms->onChecked(index); }
    Q_INVOKABLE virtual bool save() = 0;

protected:
    explicit ChgRoomVm(QObject* parent) : PlanPageVm(parent), m_rooms(new TempDataModel(this)) {}

    /// Lists these rooms and chooses the first.
    virtual void takeRooms(const QList<temp_struct>& rooms);
    /// False, with a message, when there is none to go to.
    bool isRoomChosen() const { return require(m_rooms->checkedIndex() >= 0, "请选择需要换入的房间"); }
    /// Moves the room, which is in this status; further fields go along.
    bool changeRoom(int status, QJsonObject data) const;

private:
    TempDataModel* m_rooms;
};

/// Moves a massage room in use to an empty room.
class MassChgRoomVm : public ChgRoomVm
{
    Q_OBJECT

public:
    explicit MassChgRoomVm(QObject* parent = nullptr) : ChgRoomVm(parent) {}

    bool save() override;
};

/// Moves a rest room in use to an empty room, under a plan of that room.
class RestChgRoomVm : public ChgRoomVm
{
    Q_OBJECT
    CONSTANT_PROPERTY(PlanListModel*, pPlanListModel, m_plans) // those of the chosen room

public:
    explicit RestChgRoomVm(QObject* parent = nullptr) : ChgRoomVm(parent), m_plans(new PlanListModel(this)) {}

    /// Fetches the room's plans too and checks the first; none are left when that fails.
    void selectRoom(int index) override;
    Q_INVOKABLE void checkPlan(int index) { m_plans->onChecked(index); }
    bool save() override;

protected:
    void takeRooms(const QList<temp_struct>& rooms) override;

private:
    PlanListModel* m_plans;
    QString m_plansRoomId; ///< the room that the plans are for
};
