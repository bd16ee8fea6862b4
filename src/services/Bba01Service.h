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
    GetRoomListDto* getRoomList(Fields data) { return get("/getRoomList", data); }
    /// The rooms by type: the same path, told apart by sortType in the data.
    GetRoomSortDto* getRoomSortList(Fields data) { return get("/getRoomList", data); }
    GetRoomFloorSum* getFloorSum(Fields data = {}) { return get("/getFloorSum", data); }
    GetRoomTypeSum* getRoomTypeSum(Fields data = {}) { return get("/getRoomTypeSum", data); }
    GetOverTimeDto* getOverTime() { return get("/getOverTime"); }
    GetRoomDetailNew* getRoomDetailNew(Fields data) { return get("/getRoomDetailNew", data); }
    /// The same call under a second name.
    GetRoomDetailNew* getRoomDetailNew1(Fields data) { return getRoomDetailNew(data); }
    GetRoomConsList* getRoomConsList(Fields data) { return get("/getRoomConsList", data); }
    GetPlanListNew* getRoomPlanNew(Fields data) { return get("/getPlanListNew", data); }
    GetOccTypeList* getOccTypeList() { return get("/getOccTypeList"); }
    GetEmptyRoomList* getEmptyRoomList(Fields data) { return get("/getEmptyRoomList", data); }
    GetCanMergeRoomList* getCanMergeRoomList(Fields data) { return get("/getCanMergeRoomList", data); }
    ApiRes* openMassRoom(Fields data) { return post("/openMassRoom", data); }
    ApiRes* openRestRoom(Fields data) { return post("/openRestRoom", data); }
    ApiRes* chgOccupyRoom(Fields data) { return post("/chgOccupyRoom", data); }
    ApiRes* chgCleanRoom(Fields data) { return post("/chgCleanRoom", data); }
    ApiRes* setCleanRoom(Fields data) { return post("/setCleanRoom", data); }
    ApiRes* changeRoom(Fields data) { return post("/changeRoom", data); }
    ApiRes* massToRestRoom(Fields data) { return post("/massToRestRoom", data); }
    ApiRes* restToMassRoom(Fields data) { return post("/restToMassRoom", data); }
    ApiRes* changeFeePlan(Fields data) { return post("/changeFeePlan", data); }
    ApiRes* restRoomAddTime(Fields data) { return post("/restRoomAddTime", data); }
    ApiRes* unpackRoom(Fields data) { return post("/unpackRoom", data); }
    ApiRes* mergeRoom(Fields data) { return post("/mergeRoom", data); }
    ApiRes* splitRoom(Fields data) { return post("/splitRoom", data); }
    RoomAddCard* roomAddCard(Fields data) { return post("/roomAddCard", data); }
    LeaveRoomNew* leaveRoomNew(Fields data) { return post("/leaveRoomNew", data); }
    ApiRes* cancelRoom(Fields data) { return post("/cancelRoom", data); }
    ApiRes* reSetRoomTime(Fields data) { return post("/reSetRoomTime", data); }
    ApiRes* setRemark(Fields data) { return post("/setRemark", data); }

private:
    friend class Singleton<Bba01Service>;
    Bba01Service() : Service(QStringLiteral("/bba01")) {}
};
