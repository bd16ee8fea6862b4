#include "services/Bda02Service.h"

GetStaffInfo* Bda02Service::getStaffInfo(const QJsonObject& data)
{
    return get<GetStaffInfo>("/getStaffInfo", data);
}

GetStaffWorkInfo* Bda02Service::getStaffWorkInfo(const QJsonObject& data)
{
    return get<GetStaffWorkInfo>("/getStaffWorkInfo", data);
}

GetStaffItemList* Bda02Service::getStaffItemList(const QJsonObject& data)
{
    return get<GetStaffItemList>("/getStaffItemList", data);
}

ApiRes* Bda02Service::startServer(const QJsonObject& data) { return post<ApiRes>("/startServer", data); }

ApiRes* Bda02Service::startServerWithoutOrder(const QJsonObject& data)
{
    return post<ApiRes>("/startServerWithoutOrder", data);
}

ApiRes* Bda02Service::addServer(const QJsonObject& data) { return post<ApiRes>("/addServer", data); }

ApiRes* Bda02Service::changeServer(const QJsonObject& data) { return post<ApiRes>("/changeServer", data); }

ApiRes* Bda02Service::changeCard(const QJsonObject& data) { return post<ApiRes>("/changeCard", data); }

ApiRes* Bda02Service::chgAssignType(const QJsonObject& data) { return post<ApiRes>("/chgAssignType", data); }

ApiRes* Bda02Service::chargeBack(const QJsonObject& data) { return post<ApiRes>("/chargeBack", data); }

EndServer* Bda02Service::endServer(const QJsonObject& data) { return post<EndServer>("/endServer", data); }

ApiRes* Bda02Service::updateStaffWorkStatus(const QJsonObject& data)
{
    return post<ApiRes>("/updateStaffWorkStatus", data);
}
