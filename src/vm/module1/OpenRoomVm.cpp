#include "vm/module1/OpenRoomVm.h"

#include "dto/room/RoomStatus.h"
#include "services/Bba01Service.h"

namespace {

const QVector<RoomOperation>& operations()
{
    static const QVector<RoomOperation> table = {
        {"MASS_ROOM", "开按摩房", "0101", {RoomEmpty}},
        {"REST_ROOM", "开休息房", "0102", {RoomEmpty}},
        {"OCCUPY_ROOM", "特殊占用", "0113", {RoomEmpty, RoomCleaning}},
        {"CLEAN_ROOM", "转清扫房", "0114", {RoomEmpty}},
    };
    return table;
}

} // namespace

bool OpenRoomVm::init(const QString& roomId)
{
    bool isRead = false;
    fetch(&Bba01Service::getRoomDetailNew, {{"roomId", roomId}}, [&](const GetRoomDetailNew& reply) {
        if (!reply.data())
            return;
        const RoomDetailDto& room = *reply.data();
        setRoomId(room.id());
        setRoomNo(room.roomNo());
        setFloorName(room.floorName());
        setTypeName(room.roomName());
        m_menu->update(operations(), room.status());
        isRead = true;
    });
    return isRead;
}

bool OpenRoomVm::cleanRoom()
{
    return act([this] {
        return changeSilently(&Bba01Service::chgCleanRoom, {{"id", roomId()}, {"isClean", 1}});
    });
}
