#pragma once

#include "dto/call/AssessRecords.h"
#include "dto/call/CallRecords.h"
#include "dto/card/CardOrderRecords.h"
#include "dto/card/MealRecords.h"
#include "dto/sales/ItemRecords.h"
#include "dto/sales/OrderRecords.h"
#include "dto/sales/SumRecords.h"
#include "dto/sales/TasteRecords.h"
#include "dto/staff/CallLogRecords.h"
#include "services/Service.h"

/// Items for sale, orders, the call queue, evaluation and buffet meals.
class Bca01Service : public Service, public Singleton<Bca01Service>
{
    Q_OBJECT

public:
    GetTypeList* getItemTypeList(const QJsonObject& data);
    GetItemList* getItemList(const QJsonObject& data);
    GetTagList* getTagList(const QJsonObject& data);
    GetCardOrderInfo* getCardOrderInfo(const QJsonObject& data);
    BatchUpdateOrder* batchUpdateOrder(const QJsonObject& data);
    BatchUpdateOrder* batchUpdateRoomOrder(const QJsonObject& data);
    GetRePrintOrderList* getRePrintOrderList(const QJsonObject& data);
    GetSumList* getSumList(const QJsonObject& data);
    GetHardCardCallList* getHardCardCallList(const QJsonObject& data = {});
    ApiRes* addWaitCallInfos(const QJsonObject& data);
    ApiRes* cacelWaitCall(const QJsonObject& data);
    ApiRes* crossCallInfo(const QJsonObject& data);
    ApiRes* repeatCallInfo(const QJsonObject& data);
    ApiRes* callNextHardCards(const QJsonObject& data);
    ApiRes* callHanrdCards(const QJsonObject& data);
    ApiRes* reCallHandCards(const QJsonObject& data);
    ApiRes* startServerCallInfo(const QJsonObject& data);
    CompleteWaitCall* completeWaitCall(const QJsonObject& data);
    GetMqttCallInfoDataByKey* getMqttCallInfoDataByKey(const QJsonObject& data);
    GetHardCardAssessOrders* getHardCardAssessOrders(const QJsonObject& data);
    ApiRes* assessHardCardOrders(const QJsonObject& data);
    /// params gives the page and its length.
    GetHelpCallBashApiLogPageList* getHelpCallBashApiLogPageList(const QJsonObject& data,
                                                                 const QMap<QString, QString>& params);
    GetMealTimesInfo* getMealTimesInfo(const QJsonObject& data = {});
    GetMealTimesStatistics* getMealTimesStatistics(const QJsonObject& data);
    GetMealCards* getMealCards(const QJsonObject& data);
    AddCardMealTimes* addCardMealTimes(const QJsonObject& data);

private:
    friend class Singleton<Bca01Service>;
    Bca01Service() : Service(QStringLiteral("/bca01")) {}
};
