#pragma once

#include "common/RowModel.h"
#include "dto/room/RoomDetailRecords.h"
#include "vm/shared/ActionVm.h"

/// A service that can be called to a room.
struct call_struct
{
    QString id;
    QString name;
    int num = 0; ///< how many of it are wanted
};

/// The services of a room. An index out of range changes nothing.
class RoomCallModel : public RowModel<call_struct>
{
    Q_OBJECT

public:
    explicit RoomCallModel(QObject* parent = nullptr);

    void upate(const QList<call_struct>& services) { refresh(QVector<call_struct>::fromList(services)); }
    Q_INVOKABLE void add(int index);
    /// Stops at 0.
    Q_INVOKABLE void sub(int index);
    void setNum(int index, int num);
};

/// Calls services to a room: one call for each service that is wanted.
class RoomCallVm : public ActionVm
{
    Q_OBJECT
    CONSTANT_PROPERTY(RoomCallModel*, pRoomCallModel, m_services)

public:
    explicit RoomCallVm(QObject* parent = nullptr) : ActionVm(parent), m_services(new RoomCallModel(this)) {}

    /// Takes room and services from the record; nothing without one.
    Q_INVOKABLE void init(RoomDetailDto* room);
    /// True when every call went through. What went through isn't called again by the next save().
    Q_INVOKABLE bool save();

private:
    bool callAll();

    RoomCallModel* m_services;
    QString m_roomId;
};
