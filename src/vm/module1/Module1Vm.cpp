#include "vm/module1/Module1Vm.h"

#include "app/MainClass.h"
#include "common/BusyGuard.h"
#include "common/GlobalConfig.h"
#include "dto/room/RoomStatus.h"
#include "services/Bba01Service.h"
#include "services/Reply.h"
#include "vm/module1/RoomLookups.h"

#include <QJsonArray>
#include <QPointer>

namespace {

constexpr int boardTickMs = 500;
constexpr int leastColumns = 6; ///< a setting of fewer is ignored
constexpr char roomMark[] = "room";
constexpr char staffMark[] = "staff";

} // namespace

Module1Vm::Module1Vm(QObject* parent)
    : BaseObject(parent), m_rooms(new RoomListModel(this)), m_roomsByType(new RoomSortListModel(this)),
      m_strip(new RoomStatusModel(this)), m_floors(new RoomFloorModel(this)), m_types(new RoomTypeModel(this)),
      m_overruns(new RoomOverTimeModel(this)), m_timer(new QTimer(this))
{
    const GlobalConfig* config = GlobalConfig::getInstance();
    if (config->room_item_count >= leastColumns)
        setItemColumns(config->room_item_count);
    if (const SysConfigDto* sysConfig = config->sysConfig()) {
        setUsedRoomMod(sysConfig->usedRoomMod() == 1);
        setIsCleaning(sysConfig->isCleaning());
    }
    MainClass* main = MainClass::getInstance();
    connect(main, &MainClass::mqttSignal, this, &Module1Vm::mqttEvent);
    // What was published while the broker was away is lost; the board mustn't go on showing the state before.
    connect(main, &MainClass::mqttConnected, this, [this] { mark(roomMark); });
    setMqttTopic(true);
    main->startReadStaff(this);
    m_timer->setObjectName(QStringLiteral("boardTick"));
    connect(m_timer, &QTimer::timeout, this, &Module1Vm::timeEvent);
    m_timer->start(boardTickMs);
    initRoomStatus();
    mark(roomMark);
}

Module1Vm::~Module1Vm()
{
    MainClass* main = MainClass::getInstance();
    setMqttTopic(false);
    main->disconnect(this);
    main->stopReadStaff(this);
}

void Module1Vm::initRoomStatus()
{
    m_strip->update({{QString(), QStringLiteral("全部状态"), true, false},
                     {QStringLiteral("1"), QStringLiteral("空闲房"), false, false},
                     {QStringLiteral("7"), QStringLiteral("在用房"), false, false},
                     {QStringLiteral("4"), QStringLiteral("清扫房"), false, false},
                     {QStringLiteral("5"), QStringLiteral("特殊占用房"), false, false},
                     {QStringLiteral("2"), QStringLiteral("按摩房"), false, false},
                     {QStringLiteral("3"), QStringLiteral("休息房"), false, true}});
}

void Module1Vm::setMqttTopic(bool isOn)
{
    const GlobalConfig* config = GlobalConfig::getInstance();
    QList<QString> topics;
    if (isOn) {
        for (const QString& prefix :
             {config->MQTT_ROOM_STATUS(), config->MQTT_STAFF_STATUS(), config->MQTT_CALL_CHGDATA()})
            topics.append(prefix + config->storeId());
    }
    MainClass::getInstance()->setMqttTopics(topics);
}

void Module1Vm::mark(const char* what)
{
    QMutexLocker lock(&m_marksMutex);
    m_marks[QLatin1String(what)] = true;
}

bool Module1Vm::takeMark(const char* what)
{
    QMutexLocker lock(&m_marksMutex);
    return m_marks.remove(QLatin1String(what)) > 0;
}

void Module1Vm::mqttEvent(const QString& topic, const QString&)
{
    const GlobalConfig* config = GlobalConfig::getInstance();
    if (topic.isEmpty() || topic == config->MQTT_CALL_CHGDATA())
        return;
    if (topic == config->MQTT_ROOM_STATUS())
        mark(roomMark);
    else if (topic == config->MQTT_STAFF_STATUS())
        mark(staffMark);
}

void Module1Vm::timeEvent()
{
    const QPointer<Module1Vm> self(this);
    m_timer->stop();
    if (isEnabled()) {
        if (takeMark(roomMark)) {
            for (void (Module1Vm::*step)() : {&Module1Vm::updateRoomList, &Module1Vm::getRoomFloors,
                                              &Module1Vm::getRoomTypes, &Module1Vm::getOverTime}) {
                (this->*step)();
                if (!self)
                    return;
            }
        }
        takeMark(staffMark);
    }
    m_timer->start(boardTickMs);
}

/// Makes the call and hands a good reply to take(), a refused one's text to the user; neither when the page has
/// gone in the meantime.
template <typename Call, typename Take>
void Module1Vm::fetch(Call call, Take take)
{
    const QPointer<Module1Vm> self(this);
    const auto reply = held(call(Bba01Service::getInstance()));
    if (!self)
        return;
    if (isOk(*reply))
        take(*reply);
    else
        MyMessage::getInstance()->ShowError(reply->msg());
}

QJsonObject Module1Vm::listRequest() const
{
    QJsonObject request;
    if (!m_statusCode.isEmpty())
        request.insert(QStringLiteral("status"), m_statusCode);
    const QStringList floors = m_floors->checkedIds();
    if (!floors.isEmpty())
        request.insert(QStringLiteral("floorId"), QJsonArray::fromStringList(floors));
    const QStringList types = m_types->checkedIds();
    if (!types.isEmpty())
        request.insert(QStringLiteral("houseType"), QJsonArray::fromStringList(types));
    return request;
}

void Module1Vm::updateRoomList()
{
    // A fetch that began later ends earlier: its call runs inside this one's wait. The answer to an older
    // question must not cover it.
    const int fetchNo = ++m_listFetches;
    QJsonObject request = listRequest();
    if (isGroupMode()) {
        request.insert(QStringLiteral("sortType"), 1);
        fetch([&](Bba01Service* service) { return service->getRoomSortList(request); },
              [&](const GetRoomSortDto& reply) {
                  if (fetchNo == m_listFetches)
                      m_roomsByType->update(reply.data());
              });
    } else {
        fetch([&](Bba01Service* service) { return service->getRoomList(request); },
              [&](const GetRoomListDto& reply) {
                  if (fetchNo == m_listFetches)
                      m_rooms->update(reply.data());
              });
    }
}

void Module1Vm::getRoomFloors()
{
    fetch([](Bba01Service* service) { return service->getFloorSum(); },
          [this](const GetRoomFloorSum& reply) {
              if (reply.data())
                  m_floors->update(reply.data()->floorList());
          });
}

void Module1Vm::getRoomTypes()
{
    fetch([](Bba01Service* service) { return service->getRoomTypeSum(); },
          [this](const GetRoomTypeSum& reply) {
              if (reply.data())
                  m_types->upate(reply.data()->roomTypeList());
          });
}

void Module1Vm::getOverTime()
{
    fetch([](Bba01Service* service) { return service->getOverTime(); },
          [this](const GetOverTimeDto& reply) { m_overruns->upate(reply.data()); });
}

void Module1Vm::onSelectStatus(const QString& code)
{
    const BusyGuard<Module1Vm> guard(this);
    if (!guard)
        return;
    m_statusCode = code;
    updateRoomList();
}

void Module1Vm::onChgMode()
{
    const BusyGuard<Module1Vm> guard(this);
    if (!guard)
        return;
    setIsGroupMode(!isGroupMode());
    updateRoomList();
}

void Module1Vm::onChgFloor(const QString& id)
{
    const BusyGuard<Module1Vm> guard(this);
    if (!guard)
        return;
    m_floors->toggle(id);
    updateRoomList();
}

void Module1Vm::onChgType(const QString& id)
{
    const BusyGuard<Module1Vm> guard(this);
    if (!guard)
        return;
    m_types->toggle(id);
    updateRoomList();
}

/// A change of one room; the board learns of it by the event that follows.
template <typename Call>
void Module1Vm::change(Call call)
{
    const BusyGuard<Module1Vm> guard(this);
    if (!guard)
        return;
    const auto reply = held(call(Bba01Service::getInstance()));
    if (isOkOrShown(*reply))
        MyMessage::getInstance()->showOk(QStringLiteral("操作成功"));
}

void Module1Vm::cleanRoom(const QString& id, bool dirtyFlg)
{
    change([&](Bba01Service* service) {
        if (dirtyFlg)
            return service->chgCleanRoom({{QStringLiteral("id"), id}, {QStringLiteral("isClean"), 0}});
        return service->chgOccupyRoom({{QStringLiteral("id"), id}, {QStringLiteral("isOccupy"), 0}});
    });
}

void Module1Vm::setCleanFlg(const QString& id, int status)
{
    change([&](Bba01Service* service) {
        return service->setCleanRoom(
            {{QStringLiteral("id"), id},
             {QStringLiteral("staffId"), GlobalConfig::getInstance()->userInfo()->staffId()},
             {QStringLiteral("cleanFlg"), status}});
    });
}

void Module1Vm::queryCard(const QString& cardNo, const QString& rfid)
{
    Reply<GetHardCardDetail> reply;
    {
        const BusyGuard<Module1Vm> guard(this);
        if (!guard)
            return;
        reply = lookUpCard(cardNo, rfid);
    }
    if (!reply || reply->data()->roomNo().isEmpty())
        return;
    MainClass::getInstance()->showMsgConfirm(
        QStringLiteral("提示"),
        QStringLiteral("[%1]手牌在【%2】").arg(reply->data()->cardno(), reply->data()->roomNo()));
}

void Module1Vm::queryRoom(const QString& roomNo)
{
    RoomTile room;
    if (!(isGroupMode() ? m_roomsByType->find(roomNo, &room) : m_rooms->find(roomNo, &room)))
        return;
    Q_EMIT selectRoomSignal(room.roomId, room.roomNo, room.status, room.openType, room.dirtyFlg, room.roomLock,
                            room.cleanFlg);
    decide(room);
}

void Module1Vm::tapRoom(const QString& roomId)
{
    RoomTile room;
    if (isGroupMode() ? m_roomsByType->findById(roomId, &room) : m_rooms->findById(roomId, &room))
        decide(room);
}

/// The first branch that applies.
void Module1Vm::decide(const RoomTile& room)
{
    constexpr int asGuestRoom = 2;
    const int status = room.status;
    if (status == RoomEmpty) {
        if (room.roomLock)
            MyMessage::getInstance()->showError(QStringLiteral("当前包房已被预约,不能直接开房"));
        else
            Q_EMIT openRoomAsked(room.roomId);
    } else if (status == RoomMassage || (status == RoomRest && room.openType != asGuestRoom)) {
        Q_EMIT roomDetailAsked(room.roomId);
    } else if (status == RoomCleaning && isCleaning() && room.cleanFlg != 2) {
        stepCleaning(room);
    } else if (status == RoomCleaning || status == RoomOccupied) {
        Q_EMIT cleanAsked(QStringLiteral("确定要将当前房间【%1】转成空闲房?").arg(room.roomNo), room.roomId,
                          status == RoomCleaning || room.dirtyFlg);
    } else if (status == RoomRest || (status == RoomGuest && room.openType == asGuestRoom)) {
        MyMessage::getInstance()->showError(QStringLiteral("此程序不支持客房功能"));
    }
}

void Module1Vm::stepCleaning(const RoomTile& room)
{
    if (room.cleanFlg == 0)
        Q_EMIT cleanFlgAsked(QStringLiteral("确定要[开始清扫]当前房间【%1】?").arg(room.roomNo), room.roomId,
                             1);
    else if (room.cleanFlg == 1)
        Q_EMIT cleanFlgAsked(QStringLiteral("当前房间【%1】 确定[清扫完成]?").arg(room.roomNo), room.roomId, 2);
}
