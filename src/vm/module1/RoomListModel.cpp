#include "vm/module1/RoomListModel.h"

#include "common/GlobalConfig.h"

namespace {

// Made only for the tiles that are shown; a refresh compares what they are made of.

bool isSpokenOtherwise(const RoomTile& one, const RoomTile& other)
{
    return one.roomNo != other.roomNo || one.stateName != other.stateName || one.statusVal != other.statusVal ||
           one.leftTime != other.leftTime;
}

bool areLinesOther(const RoomTile& one, const RoomTile& other)
{
    return one.cardList != other.cardList || one.staffList != other.staffList ||
           one.payAmount != other.payAmount || one.remark != other.remark || one.groupRoom != other.groupRoom ||
           one.finishStaff != other.finishStaff || one.lastSvrTime != other.lastSvrTime;
}

} // namespace

RoomListModel::RoomListModel(QObject* parent)
    : RowModel({field("roomId", &RoomTile::roomId),
                field("roomNo", &RoomTile::roomNo),
                field("roomName", &RoomTile::roomName),
                field("roomFloor", &RoomTile::roomFloor),
                field("roomNum", &RoomTile::roomNum),
                field("backColor", &RoomTile::backColor),
                field("payAmount", &RoomTile::payAmount),
                field("statusVal", &RoomTile::statusVal),
                field("cardList", &RoomTile::cardList),
                field("staffList", &RoomTile::staffList),
                field("finishStaff", &RoomTile::finishStaff),
                field("groupRoom", &RoomTile::groupRoom),
                field("usedTime", &RoomTile::usedTime),
                field("leftTime", &RoomTile::leftTime),
                field("roomCleaner", &RoomTile::roomCleaner),
                field("remark", &RoomTile::remark),
                field("lastSvrTime", &RoomTile::lastSvrTime),
                field("stateMark", &RoomTile::stateMark),
                {"spokenName", [](const RoomTile& tile) { return spokenName(tile); }, isSpokenOtherwise},
                {"lines", [](const RoomTile& tile) { return linesOf(tile); }, areLinesOther},
                field("roomLock", &RoomTile::roomLock),
                field("openType", &RoomTile::openType),
                field("dirtyFlg", &RoomTile::dirtyFlg),
                field("status", &RoomTile::status),
                field("cleanFlg", &RoomTile::cleanFlg)},
               parent)
{
}

void RoomListModel::update(const Array<RoomDto*>& rooms)
{
    const TerminalDto* terminal = GlobalConfig::getInstance()->terminalInfo();
    const bool isShowAmount = terminal && terminal->isShowAmount();
    QVector<RoomTile> tiles;
    tiles.reserve(rooms.size());
    for (const RoomDto* room : rooms) {
        // An element of the list that is no object at all leaves an empty record.
        if (!(room->id() + room->code() + room->name()).isEmpty() || room->status() != 0)
            tiles.append(tileOf(*room, isShowAmount));
    }
    refresh(tiles);
}

RoomSortVm::RoomSortVm(const RoomSortDto& type) : typeName(type.name()), pRoomModel(new RoomListModel(this))
{
    pRoomModel->update(type.roomList());
}

RoomSortListModel::RoomSortListModel(QObject* parent)
    : ObjectModel({{"typeName", [](RoomSortVm* group) { return group->typeName; }},
                   {"roomList", [](RoomSortVm* group) { return QVariant::fromValue(group->pRoomModel); }}},
                  parent)
{
}

int RoomSortListModel::indexOf(const QString& typeName) const
{
    return find([&](const RoomSortVm* group) { return group->typeName == typeName; });
}

void RoomSortListModel::update(const Array<RoomSortDto*>& types)
{
    const QVector<RoomSortVm*> present = rows();
    if (types.isEmpty() || types.size() != present.size()) {
        QVector<RoomSortVm*> fresh;
        for (const RoomSortDto* type : types)
            fresh.append(new RoomSortVm(*type));
        replaceAll(fresh);
        return;
    }
    for (int i = 0; i < present.size(); ++i) {
        present.at(i)->setProperty("typeName", types.at(i)->name());
        present.at(i)->pRoomModel->update(types.at(i)->roomList());
    }
    Q_EMIT dataChanged(index(0), index(present.size() - 1), {roleNames().key("typeName")});
}
