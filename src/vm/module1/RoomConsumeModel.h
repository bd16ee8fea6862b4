#pragma once

#include "common/RowModel.h"
#include "dto/room/RoomDetailRecords.h"

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
