#include "vm/module1/Module1Vm.h"

#include "dto/room/RoomStatus.h"
#include "services/Bba01Service.h"
#include "vm/module1/RoomSettings.h"
#include "vm/shared/CardLookup.h"

#include <QJsonArray>

namespace {

constexpr int leastColumns = 6; ///< a setting of fewer is ignored
constexpr int usualColumns = 8;
constexpr int leastTileWidth = 125; ///< pixels
constexpr int asGuestRoom = 2;
const QString roomMark = QStringLiteral("room");
const QString staffMark = QStringLiteral("staff");

QVector<EventMarks::Topic> boardTopics()
{
    const GlobalConfig* config = GlobalConfig::getInstance();
    return {{config->MQTT_ROOM_STATUS(), roomMark},
            {config->MQTT_STAFF_STATUS(), staffMark},
            {config->MQTT_CALL_CHGDATA(), {}}};
}

} // namespace

Module1Vm::Module1Vm(QObject* parent)
    : ActionVm(parent), m_rooms(new RoomListModel(this)), m_roomsByType(new RoomSortListModel(this)),
      m_strip(new RoomStatusModel(this)), m_floors(new RoomFloorModel(this)), m_types(new RoomTypeModel(this)),
      m_overruns(new RoomOverTimeModel(this)), m_marks(this, boardTopics(), [this] { fetchMarked(); })
{
    const GlobalConfig* config = GlobalConfig::getInstance();
    m_areColumnsSet = config->room_item_count >= leastColumns;
    if (m_areColumnsSet)
        setItemColumns(config->room_item_count);
    if (const SysConfigDto* sysConfig = config->sysConfig()) {
        setUsedRoomMod(sysConfig->usedRoomMod() == 1);
        setIsCleaning(sysConfig->isCleaning());
    }
    connect(MainClass::getInstance(), &MainClass::mqttSignal, this, &Module1Vm::mqttEvent);
    m_staffReader.listenToStaff();
    initRoomStatus();
}

void Module1Vm::initRoomStatus()
{
    m_strip->replace({{QString(), QStringLiteral("全部状态"), true, false},
                      {QStringLiteral("1"), QStringLiteral("空闲房"), false, false},
                      {QStringLiteral("7"), QStringLiteral("在用房"), false, false},
                      {QStringLiteral("4"), QStringLiteral("清扫房"), false, false},
                      {QStringLiteral("5"), QStringLiteral("特殊占用房"), false, false},
                      {QStringLiteral("2"), QStringLiteral("按摩房"), false, false},
                      {QStringLiteral("3"), QStringLiteral("休息房"), false, true}});
}

int Module1Vm::columnsIn(int boardWidth) const
{
    const int columns = itemColumns() == 0 ? usualColumns : itemColumns();
    return m_areColumnsSet ? columns : qBound(1, boardWidth / leastTileWidth, columns);
}

void Module1Vm::mqttEvent(const QString& topic, const QString&) { m_marks.hear(topic); }

void Module1Vm::fetchMarked()
{
    if (!isEnabled())
        return;
    const QPointer<Module1Vm> self(this);
    if (m_marks.take(roomMark)) {
        for (void (Module1Vm::*step)() : {&Module1Vm::updateRoomList, &Module1Vm::getRoomFloors,
                                          &Module1Vm::getRoomTypes, &Module1Vm::getOverTime}) {
            (this->*step)();
            // Without a line the next call would only make the user wait as long again.
            if (!self || !wasAnswered() || !isOnScreen())
                return;
        }
    }
    m_marks.take(staffMark);
}

QJsonObject Module1Vm::listRequest() const
{
    QJsonObject request;
    if (!m_statusCode.isEmpty())
        request.insert("status", m_statusCode);
    const QStringList floors = m_floors->checkedIds();
    if (!floors.isEmpty())
        request.insert("floorId", QJsonArray::fromStringList(floors));
    const QStringList types = m_types->checkedIds();
    if (!types.isEmpty())
        request.insert("houseType", QJsonArray::fromStringList(types));
    return request;
}

void Module1Vm::updateRoomList()
{
    // A fetch that began later ends earlier: its call runs inside this one's wait. The answer to an older
    // question must not cover it.
    const int fetchNo = ++m_listFetches;
    QJsonObject request = listRequest();
    if (isGroupMode()) {
        request.insert("sortType", 1);
        fetch(
            &Bba01Service::getRoomSortList, request,
            [&](const GetRoomSortDto& reply) {
                if (fetchNo == m_listFetches)
                    m_roomsByType->update(reply.data());
            },
            Refusal::Shown);
    } else {
        fetch(
            &Bba01Service::getRoomList, request,
            [&](const GetRoomListDto& reply) {
                if (fetchNo == m_listFetches)
                    m_rooms->update(reply.data());
            },
            Refusal::Shown);
    }
}

void Module1Vm::getRoomFloors()
{
    const auto take = [this](const GetRoomFloorSum& reply) {
        if (reply.data())
            m_floors->update(reply.data()->floorList());
    };
    fetch(&Bba01Service::getFloorSum, {}, take, Refusal::Shown);
}

void Module1Vm::getRoomTypes()
{
    const auto take = [this](const GetRoomTypeSum& reply) {
        if (reply.data())
            m_types->upate(reply.data()->roomTypeList());
    };
    fetch(&Bba01Service::getRoomTypeSum, {}, take, Refusal::Shown);
}

void Module1Vm::getOverTime()
{
    const auto take = [this](const GetOverTimeDto& reply) { m_overruns->upate(reply.data()); };
    fetch(&Bba01Service::getOverTime, take, Refusal::Shown);
}

void Module1Vm::onSelectStatus(const QString& code)
{
    act([&] {
        m_statusCode = code;
        updateRoomList();
        return true;
    });
}

void Module1Vm::onChgMode()
{
    act([this] {
        setIsGroupMode(!isGroupMode());
        updateRoomList();
        return true;
    });
}

void Module1Vm::onChgFloor(const QString& id)
{
    act([&] {
        m_floors->toggle(id);
        updateRoomList();
        return true;
    });
}

void Module1Vm::onChgType(const QString& id)
{
    act([&] {
        m_types->toggle(id);
        updateRoomList();
        return true;
    });
}

// A change of one room; the board learns of it by the event that follows.

void Module1Vm::cleanRoom(const QString& id, bool dirtyFlg)
{
    act([&] {
        return dirtyFlg ? change(&Bba01Service::chgCleanRoom, {{"id", id}, {"isClean", 0}})
                        : change(&Bba01Service::chgOccupyRoom, {{"id", id}, {"isOccupy", 0}});
    });
}

void Module1Vm::setCleanFlg(const QString& id, int status)
{
    act([&] {
        const QString staffId = GlobalConfig::getInstance()->userInfo()->staffId();
        return change(&Bba01Service::setCleanRoom, {{"id", id}, {"staffId", staffId}, {"cleanFlg", status}});
    });
}

void Module1Vm::queryCard(const QString& cardNo, const QString& rfid)
{
    Reply<GetHardCardDetail> reply;
    act([&] {
        reply = lookUpCard(cardNo, rfid);
        return true;
    });
    if (!reply || reply->data()->roomNo().isEmpty())
        return;
    MainClass::getInstance()->showMsgConfirm(
        QStringLiteral("提示"),
        QStringLiteral("[%1]手牌在【%2】").arg(reply->data()->cardno(), reply->data()->roomNo()));
}

template <typename Fits>
bool Module1Vm::findRoom(Fits fits, RoomTile* found) const
{
    QVector<const RoomListModel*> lists{m_rooms};
    if (isGroupMode()) {
        lists.clear();
        for (const RoomSortVm* group : m_roomsByType->rows())
            lists.append(group->pRoomModel);
    }
    for (const RoomListModel* list : lists) {
        const int room = list->find(fits);
        if (room >= 0) {
            *found = list->row(room);
            return true;
        }
    }
    return false;
}

void Module1Vm::queryRoom(const QString& roomNo)
{
    RoomTile room;
    if (!findRoom([&](const RoomTile& tile) { return tile.roomNo == roomNo; }, &room))
        return;
    Q_EMIT selectRoomSignal(room.roomId, room.roomNo, room.status, room.openType, room.dirtyFlg, room.roomLock,
                            room.cleanFlg);
    tap(room);
}

void Module1Vm::tapRoom(const QString& roomId)
{
    RoomTile room;
    if (findRoom([&](const RoomTile& tile) { return tile.roomId == roomId; }, &room))
        tap(room);
}

/// The first branch that applies.
void Module1Vm::tap(const RoomTile& room)
{
    const bool isGuestRoom = room.openType == asGuestRoom;
    if (room.status == RoomEmpty) {
        if (room.roomLock)
            MyMessage::getInstance()->showError(QStringLiteral("当前包房已被预约,不能直接开房"));
        else
            Q_EMIT openRoomAsked(room.roomId);
    } else if (room.status == RoomMassage || (room.status == RoomRest && !isGuestRoom)) {
        Q_EMIT roomDetailAsked(room.roomId);
    } else if (room.status == RoomCleaning || room.status == RoomOccupied) {
        askToClean(room);
    } else if (room.status == RoomRest || (room.status == RoomGuest && isGuestRoom)) {
        MyMessage::getInstance()->showError(QStringLiteral("此程序不支持客房功能"));
    }
}

void Module1Vm::askToClean(const RoomTile& room)
{
    constexpr int begun = 1;
    constexpr int done = 2;
    if (room.status == RoomCleaning && isCleaning() && room.cleanFlg != done) {
        if (room.cleanFlg == 0)
            Q_EMIT cleanFlgAsked(QStringLiteral("确定要[开始清扫]当前房间【%1】?").arg(room.roomNo),
                                 room.roomId, begun);
        else if (room.cleanFlg == begun)
            Q_EMIT cleanFlgAsked(QStringLiteral("当前房间【%1】 确定[清扫完成]?").arg(room.roomNo), room.roomId,
                                 done);
        return;
    }
    Q_EMIT cleanAsked(QStringLiteral("确定要将当前房间【%1】转成空闲房?").arg(room.roomNo), room.roomId,
                      room.status == RoomCleaning || room.dirtyFlg);
}
