#include "services/Bba01Service.h"

GetRoomListDto* Bba01Service::getRoomList(const QJsonObject& data)
{
    return get<GetRoomListDto>("/getRoomList", data);
}

GetRoomSortDto* Bba01Service::getRoomSortList(const QJsonObject& data)
{
    return get<GetRoomSortDto>("/getRoomList", data);
}

GetRoomFloorSum* Bba01Service::getFloorSum(const QJsonObject& data)
{
    return get<GetRoomFloorSum>("/getFloorSum", data);
}

GetRoomTypeSum* Bba01Service::getRoomTypeSum(const QJsonObject& data)
{
    return get<GetRoomTypeSum>("/getRoomTypeSum", data);
}

GetOverTimeDto* Bba01Service::getOverTime() { return get<GetOverTimeDto>("/getOverTime"); }

GetRoomDetailNew* Bba01Service::getRoomDetailNew(const QJsonObject& data)
{
    return get<GetRoomDetailNew>("/getRoomDetailNew", data);
}

GetRoomDetailNew* Bba01Service::getRoomDetailNew1(const QJsonObject& data) { return getRoomDetailNew(data); }

GetRoomConsList* Bba01Service::getRoomConsList(const QJsonObject& data)
{
    return get<GetRoomConsList>("/getRoomConsList", data);
}

GetPlanListNew* Bba01Service::getRoomPlanNew(const QJsonObject& data)
{
    return get<GetPlanListNew>("/getPlanListNew", data);
}

GetOccTypeList* Bba01Service::getOccTypeList() { return get<GetOccTypeList>("/getOccTypeList"); }

GetEmptyRoomList* Bba01Service::getEmptyRoomList(const QJsonObject& data)
{
    return get<GetEmptyRoomList>("/getEmptyRoomList", data);
}

GetCanMergeRoomList* Bba01Service::getCanMergeRoomList(const QJsonObject& data)
{
    return get<GetCanMergeRoomList>("/getCanMergeRoomList", data);
}

ApiRes* Bba01Service::openMassRoom(const QJsonObject& data) { return post<ApiRes>("/openMassRoom", data); }

ApiRes* Bba01Service::openRestRoom(const QJsonObject& data) { return post<ApiRes>("/openRestRoom", data); }

ApiRes* Bba01Service::chgOccupyRoom(const QJsonObject& data) { return post<ApiRes>("/chgOccupyRoom", data); }

ApiRes* Bba01Service::chgCleanRoom(const QJsonObject& data) { return post<ApiRes>("/chgCleanRoom", data); }

ApiRes* Bba01Service::setCleanRoom(const QJsonObject& data) { return post<ApiRes>("/setCleanRoom", data); }

ApiRes* Bba01Service::changeRoom(const QJsonObject& data) { return post<ApiRes>("/changeRoom", data); }

ApiRes* Bba01Service::massToRestRoom(const QJsonObject& data) { return post<ApiRes>("/massToRestRoom", data); }

ApiRes* Bba01Service::restToMassRoom(const QJsonObject& data) { return post<ApiRes>("/restToMassRoom", data); }

ApiRes* Bba01Service::changeFeePlan(const QJsonObject& data) { return post<ApiRes>("/changeFeePlan", data); }

ApiRes* Bba01Service::restRoomAddTime(const QJsonObject& data)
{
    return post<ApiRes>("/restRoomAddTime", data);
}

ApiRes* Bba01Service::unpackRoom(const QJsonObject& data) { return post<ApiRes>("/unpackRoom", data); }

ApiRes* Bba01Service::mergeRoom(const QJsonObject& data) { return post<ApiRes>("/mergeRoom", data); }

ApiRes* Bba01Service::splitRoom(const QJsonObject& data) { return post<ApiRes>("/splitRoom", data); }

RoomAddCard* Bba01Service::roomAddCard(const QJsonObject& data)
{
    return post<RoomAddCard>("/roomAddCard", data);
}

LeaveRoomNew* Bba01Service::leaveRoomNew(const QJsonObject& data)
{
    return post<LeaveRoomNew>("/leaveRoomNew", data);
}

ApiRes* Bba01Service::cancelRoom(const QJsonObject& data) { return post<ApiRes>("/cancelRoom", data); }

ApiRes* Bba01Service::reSetRoomTime(const QJsonObject& data) { return post<ApiRes>("/reSetRoomTime", data); }

ApiRes* Bba01Service::setRemark(const QJsonObject& data) { return post<ApiRes>("/setRemark", data); }
