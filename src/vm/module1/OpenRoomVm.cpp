#include "vm/module1/OpenRoomVm.h"

#include "common/BusyGuard.h"
#include "common/GlobalConfig.h"
#include "dto/room/RoomStatus.h"
#include "services/Bba01Service.h"
#include "services/Reply.h"

#include <QPointer>

OpenRoomVm::OpenRoomVm(QObject* parent) : QObject(parent), m_menu(new MenuModel(this)) {}

bool OpenRoomVm::init(const QString& roomId)
{
    const QPointer<OpenRoomVm> self(this);
    const auto reply =
        held(Bba01Service::getInstance()->getRoomDetailNew({{QStringLiteral("roomId"), roomId}}));
    if (!isOkOrShown(*reply) || !reply->data() || !self)
        return false;
    const RoomDetailDto& room = *reply->data();
    setRoomId(room.id());
    setRoomNo(room.roomNo());
    setFloorName(room.floorName());
    setTypeName(room.roomName());
    initMenu(room.status());
    return true;
}

void OpenRoomVm::initMenu(int status)
{
    QList<menu_struct> menu;
    const auto add = [&](const char* code, const QString& name, const QString& right) {
        if (!GlobalConfig::getInstance()->isHaveAuth(right))
            return;
        menu_struct entry;
        entry.code = code;
        entry.name = name;
        menu.append(entry);
    };
    const bool isEmpty = status == RoomEmpty;
    if (isEmpty)
        add("MASS_ROOM", "开按摩房", "0101");
    if (isEmpty)
        add("REST_ROOM", "开休息房", "0102");
    if (isEmpty || status == RoomCleaning)
        add("OCCUPY_ROOM", "特殊占用", "0113");
    if (isEmpty)
        add("CLEAN_ROOM", "转清扫房", "0114");
    m_menu->update(menu);
}

bool OpenRoomVm::cleanRoom()
{
    const BusyGuard<OpenRoomVm> guard(this);
    if (!guard)
        return false;
    const auto reply = held(Bba01Service::getInstance()->chgCleanRoom(
        {{QStringLiteral("id"), roomId()}, {QStringLiteral("isClean"), 1}}));
    return isOkOrShown(*reply);
}
