#include "services/Bca01Service.h"

GetTypeList* Bca01Service::getItemTypeList(const QJsonObject& data)
{
    return get<GetTypeList>("/getTypeList", data);
}

GetItemList* Bca01Service::getItemList(const QJsonObject& data)
{
    return get<GetItemList>("/getItemList", data);
}

GetTagList* Bca01Service::getTagList(const QJsonObject& data) { return get<GetTagList>("/getTagList", data); }

GetCardOrderInfo* Bca01Service::getCardOrderInfo(const QJsonObject& data)
{
    return get<GetCardOrderInfo>("/getCardOrderInfo", data);
}

BatchUpdateOrder* Bca01Service::batchUpdateOrder(const QJsonObject& data)
{
    return post<BatchUpdateOrder>("/batchUpdateOrder", data);
}

BatchUpdateOrder* Bca01Service::batchUpdateRoomOrder(const QJsonObject& data)
{
    return post<BatchUpdateOrder>("/batchUpdateRoomOrder", data);
}

GetRePrintOrderList* Bca01Service::getRePrintOrderList(const QJsonObject& data)
{
    return get<GetRePrintOrderList>("/getRePrintOrderList", data);
}

GetSumList* Bca01Service::getSumList(const QJsonObject& data) { return get<GetSumList>("/getSumList", data); }

GetHardCardCallList* Bca01Service::getHardCardCallList(const QJsonObject& data)
{
    return get<GetHardCardCallList>("/getHardCardCallList", data);
}

ApiRes* Bca01Service::addWaitCallInfos(const QJsonObject& data)
{
    return post<ApiRes>("/addWaitCallInfos", data);
}

ApiRes* Bca01Service::cacelWaitCall(const QJsonObject& data) { return post<ApiRes>("/cacelWaitCall", data); }

ApiRes* Bca01Service::crossCallInfo(const QJsonObject& data) { return post<ApiRes>("/crossCallInfo", data); }

ApiRes* Bca01Service::repeatCallInfo(const QJsonObject& data) { return post<ApiRes>("/repeatCallInfo", data); }

ApiRes* Bca01Service::callNextHardCards(const QJsonObject& data)
{
    return post<ApiRes>("/callNextHardCards", data);
}

ApiRes* Bca01Service::callHanrdCards(const QJsonObject& data) { return post<ApiRes>("/callHardCards", data); }

ApiRes* Bca01Service::reCallHandCards(const QJsonObject& data)
{
    return post<ApiRes>("/reCallHardCards", data);
}

ApiRes* Bca01Service::startServerCallInfo(const QJsonObject& data)
{
    return post<ApiRes>("/startServerCallInfo", data);
}

CompleteWaitCall* Bca01Service::completeWaitCall(const QJsonObject& data)
{
    return post<CompleteWaitCall>("/completeWaitCall", data);
}

GetMqttCallInfoDataByKey* Bca01Service::getMqttCallInfoDataByKey(const QJsonObject& data)
{
    return get<GetMqttCallInfoDataByKey>("/getMqttCallInfoDataByKey", data);
}

GetHardCardAssessOrders* Bca01Service::getHardCardAssessOrders(const QJsonObject& data)
{
    return get<GetHardCardAssessOrders>("/getHardCardAssessOrders", data);
}

ApiRes* Bca01Service::assessHardCardOrders(const QJsonObject& data)
{
    return post<ApiRes>("/assessHardCardOrders", data);
}

GetHelpCallBashApiLogPageList* Bca01Service::getHelpCallBashApiLogPageList(const QJsonObject& data,
                                                                           const QMap<QString, QString>& params)
{
    return get<GetHelpCallBashApiLogPageList>("/getHelpCallBashApiLogPageList", data, params);
}

GetMealTimesInfo* Bca01Service::getMealTimesInfo(const QJsonObject& data)
{
    return get<GetMealTimesInfo>("/getMealTimesInfo", data);
}

GetMealTimesStatistics* Bca01Service::getMealTimesStatistics(const QJsonObject& data)
{
    return get<GetMealTimesStatistics>("/getMealTimesStatistics", data);
}

GetMealCards* Bca01Service::getMealCards(const QJsonObject& data)
{
    return get<GetMealCards>("/getMealCards", data);
}

AddCardMealTimes* Bca01Service::addCardMealTimes(const QJsonObject& data)
{
    return post<AddCardMealTimes>("/addCardMealTimes", data);
}
