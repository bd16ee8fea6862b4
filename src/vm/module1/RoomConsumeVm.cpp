#include "vm/module1/RoomConsumeVm.h"

#include "services/Bba01Service.h"
#include "vm/shared/Texts.h"

namespace {

using ConsumeLine = room_consume_struct;

QString cardTextOf(const ConsumeLine& line)
{
    return line.srcOldCardNo.isEmpty() ? line.cardNo : line.cardNo + QStringLiteral("[转]");
}

QString lineColorOf(const ConsumeLine& line)
{
    return line.srcOldCardNo.isEmpty() ? QStringLiteral("#FFFFFF") : QStringLiteral("#EAE9EA");
}

QString lineStateOf(const ConsumeLine& line)
{
    return line.cmtFlg == 0 ? QStringLiteral("[未完成]") : QString();
}

} // namespace

RoomConsumeModel::RoomConsumeModel(QObject* parent)
    : RowModel({{"cardNo", cardTextOf},
                field("itemName", &ConsumeLine::itemName),
                field("num", &ConsumeLine::num),
                {"price", [](const ConsumeLine& line) { return shortMoney(line.price); }},
                {"amount", [](const ConsumeLine& line) { return shortMoney(line.amount); }},
                field("staffNo", &ConsumeLine::staffNo),
                field("pushNo", &ConsumeLine::pushNo),
                {"backColor", lineColorOf},
                {"statusVal", lineStateOf},
                field("createTime", &ConsumeLine::createtime)},
               parent)
{
}

void RoomConsumeModel::update(const Array<RoomOrderDto*>& lines)
{
    QVector<room_consume_struct> rows;
    for (const RoomOrderDto* line : lines) {
        rows.append({line->cardNo(), line->srcOldCardNo(), line->itemName(), line->num(), line->price(),
                     line->amount(), line->staffNo(), line->pushNo(), line->createtime(), line->cmtFlg()});
    }
    refresh(rows);
}

void RoomConsumeVm::init(const QString& roomId)
{
    fetch(&Bba01Service::getRoomConsList, {{"roomId", roomId}},
          [this](const GetRoomConsList& reply) { m_lines->update(reply.data()); });
}
