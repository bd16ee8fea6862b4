#include "services/Bea01Service.h"

GetOrderListNew* Bea01Service::getOrderListNew(const QJsonObject& data)
{
    return get<GetOrderListNew>("/getOrderListNew", data);
}

ApiRes* Bea01Service::transferAct(const QJsonObject& data) { return post<ApiRes>("/transferAct", data); }
