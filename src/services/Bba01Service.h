#pragma once

#include "dto/room/RoomDetailRecords.h"
#include "dto/room/RoomFilterRecords.h"
#include "dto/room/RoomGroupRecords.h"
#include "dto/room/RoomOpeningRecords.h"
#include "dto/room/RoomRecords.h"
#include "services/Service.h"

/// Rooms.
class Bba01Service : public Service, public Singleton<Bba01Service>
{
    Q_OBJECT

public:
    GetRoomListDto* getRoomList(const QJsonObject& data);
    /// The rooms by type: the same path, told apart by sortType in the data.
    GetRoomSortDto* getRoomSortList(const QJsonObject& data);
    GetRoomFloorSum* getFloorSum(const QJsonObject& data = {});
    GetRoomTypeSum* getRoomTypeSum(const QJsonObject& data = {});
    GetOverTimeDto* getOverTime();
    GetRoomDetailNew* getRoomDetailNew(const QJsonObject& data);
    /// The same call under a second name.
    GetRoomDetailNew* getRoomDetailNew1(const QJsonObject& data);
    GetRoomConsList* getRoomConsList(const QJsonObject& data);
    GetPlanListNew* getRoomPlanNew(const QJsonObject& data);
    GetOccTypeList* getOccTypeList();
    GetEmptyRoomList* getEmptyRoomList(const QJsonObject& data);
    GetCanMergeRoomList* getCanMergeRoomList(const QJsonObject& data);
    ApiRes* openMassRoom(const QJsonObject& data);
    ApiRes* openRestRoom(const QJsonObject& data);
    ApiRes* chgOccupyRoom(const QJsonObject& data);
    ApiRes* chgCleanRoom(const QJsonObject& data);
    ApiRes* setCleanRoom(const QJsonObject& data);
    ApiRes* changeRoom(const QJsonObject& data);
    ApiRes* massToRestRoom(const QJsonObject& data);
    ApiRes* restToMassRoom(const QJsonObject& data);
    ApiRes* changeFeePlan(const QJsonObject& data);
    ApiRes* restRoomAddTime(const QJsonObject& data);
    ApiRes* unpackRoom(const QJsonObject& data);
    ApiRes* mergeRoom(const QJsonObject& data);
    ApiRes* splitRoom(const QJsonObject& data);
    RoomAddCard* roomAddCard(const QJsonObject& data);
    LeaveRoomNew* leaveRoomNew(const QJsonObject& data);
    ApiRes* cancelRoom(const QJsonObject& data);
    ApiRes* reSetRoomTime(const QJsonObject& data);
    ApiRes* setRemark(const QJsonObject& data);

private:
    friend class Singleton<Bba01Service>;
    Bba01Service() : Service(QStringLiteral("/bba01")) {}
};
