#include "vm/module1/RoomListModel.h"

#include "common/GlobalConfig.h"

#include <algorithm>

RoomListModel::RoomListModel(QObject* parent)
    : RowModel({field("roomId", &RoomTile::roomId),           field("roomNo", &RoomTile::roomNo),
                field("roomName", &RoomTile::roomName),       field("roomFloor", &RoomTile::roomFloor),
                field("roomNum", &RoomTile::roomNum),         field("backColor", &RoomTile::backColor),
                field("payAmount", &RoomTile::payAmount),     field("statusVal", &RoomTile::statusVal),
                field("cardList", &RoomTile::cardList),       field("staffList", &RoomTile::staffList),
                field("finishStaff", &RoomTile::finishStaff), field("groupRoom", &RoomTile::groupRoom),
                field("usedTime", &RoomTile::usedTime),       field("leftTime", &RoomTile::leftTime),
                field("roomCleaner", &RoomTile::roomCleaner), field("remark", &RoomTile::remark),
                field("lastSvrTime", &RoomTile::lastSvrTime), field("roomLock", &RoomTile::roomLock),
                field("openType", &RoomTile::openType),       field("dirtyFlg", &RoomTile::dirtyFlg),
                field("status", &RoomTile::status),           field("cleanFlg", &RoomTile::cleanFlg)},
               parent)
{
}

void RoomListModel::update(const Array<RoomDto*>& rooms)
{
    const TerminalDto* terminal = GlobalConfig::getInstance()->terminalInfo();
    const bool isShowAmount = terminal && terminal->isShowAmount();
    QVector<RoomTile> tiles;
    tiles.reserve(rooms.size());
    for (const RoomDto* room : rooms)
        tiles.append(tileOf(*room, isShowAmount));
    refresh(tiles);
}

bool RoomListModel::find(QString RoomTile::*field, const QString& value, RoomTile* found) const
{
    const QVector<RoomTile> tiles = rows();
    const auto tile = std::find_if(tiles.begin(), tiles.end(),
                                   [&](const RoomTile& candidate) { return candidate.*field == value; });
    if (tile == tiles.end())
        return false;
    *found = *tile;
    return true;
}

RoomSortVm::RoomSortVm(const RoomSortDto& type, QObject* parent)
    : QObject(parent), typeName(type.name()), pRoomModel(new RoomListModel(this))
{
    pRoomModel->update(type.roomList());
}

RoomSortListModel::RoomSortListModel(QObject* parent)
    : RowModel({{"typeName", [](RoomSortVm* group) { return group->typeName; }, {}},
                {"roomList", [](RoomSortVm* group) { return QVariant::fromValue(group->pRoomModel); }, {}}},
               parent)
{
}

void RoomSortListModel::update(const Array<RoomSortDto*>& types)
{
    const QVector<RoomSortVm*> present = rows();
    if (types.isEmpty() || types.size() != present.size()) {
        QVector<RoomSortVm*> fresh;
        for (const RoomSortDto* type : types)
            fresh.append(new RoomSortVm(*type, this));
        replace(fresh);
        for (RoomSortVm* group : present)
            group->deleteLater();
        return;
    }
    for (int i = 0; i < present.size(); ++i) {
        present.at(i)->setProperty("typeName", types.at(i)->name());
        present.at(i)->pRoomModel->update(types.at(i)->roomList());
    }
    Q_EMIT dataChanged(index(0), index(present.size() - 1), {roleNames().key("typeName")});
}

bool RoomSortListModel::find(const QString& roomNo, RoomTile* found) const
{
    const QVector<RoomSortVm*> groups = rows();
    return std::any_of(groups.begin(), groups.end(),
                       [&](const RoomSortVm* group) { return group->pRoomModel->find(roomNo, found); });
}

bool RoomSortListModel::findById(const QString& id, RoomTile* found) const
{
    const QVector<RoomSortVm*> groups = rows();
    return std::any_of(groups.begin(), groups.end(),
                       [&](const RoomSortVm* group) { return group->pRoomModel->findById(id, found); });
}
