#include "vm/module1/OpenOccupyVm.h"

#include "services/Bba01Service.h"

void OccupyListModel::upate(const Array<RoomOccupyDto*>& kinds)
{
    QVector<occupy_struct> rows;
    for (const RoomOccupyDto* kind : kinds)
        rows.append({kind->id(), kind->type_name(), false});
    refresh(rows);
}

void OpenOccupyVm::init(const QString& roomId)
{
    m_roomId = roomId;
    fetch(&Bba01Service::getOccTypeList, [this](const GetOccTypeList& reply) { m_kinds->upate(reply.data()); });
}

bool OpenOccupyVm::save()
{
    return act([this] {
        const int checked = m_kinds->checkedIndex();
        QJsonObject data{{"id", m_roomId}, {"occType", m_kinds->row(checked).id}, {"isOccupy", 1}};
        if (!remark().isEmpty())
            data.insert("remark", remark());
        return require(checked >= 0, "特殊占用原由不能为空") &&
               changeSilently(&Bba01Service::chgOccupyRoom, data);
    });
}
