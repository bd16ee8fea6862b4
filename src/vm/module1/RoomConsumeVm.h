#pragma once

#include "common/RowModel.h"
#include "dto/room/RoomDetailRecords.h"
#include "vm/shared/ActionVm.h"

/// A line of a room's consumption. Money in yuan.
struct room_consume_struct
{
    QString cardNo;
    QString srcOldCardNo; ///< card that the line was moved from, else empty
    QString itemName;
    double num = 0;
    double price = 0; ///< of one
    double amount = 0;
    QString staffNo;
    QString pushNo;
    QString createtime;
    int cmtFlg = 0; ///< 0: not finished
};

/// A room's consumption, as the table shows it.
class RoomConsumeModel : public RowModel<room_consume_struct>
{
    Q_OBJECT

public:
    explicit RoomConsumeModel(QObject* parent = nullptr);

    void update(const Array<RoomOrderDto*>& lines);
};

/// What was consumed in a room, read once.
class RoomConsumeVm : public ActionVm
{
    Q_OBJECT
    CONSTANT_PROPERTY(RoomConsumeModel*, pRoomConsumeModel, m_lines)

public:
    explicit RoomConsumeVm(QObject* parent = nullptr) : ActionVm(parent), m_lines(new RoomConsumeModel(this)) {}

    /// A refusal is shown and leaves the list as it is.
    Q_INVOKABLE void init(const QString& roomId);

private:
    RoomConsumeModel* m_lines;
};
