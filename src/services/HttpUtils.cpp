#include "services/HttpUtils.h"

GetStaffList* HttpUtils::getStaffList1(const QJsonObject& data)
{
    return get<GetStaffList>("/getStaffList", data);
}
