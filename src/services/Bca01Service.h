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
    GetTypeList* getItemTypeList(Fields data) { return get("/getTypeList", data); }
    GetItemList* getItemList(Fields data) { return get("/getItemList", data); }
    /// The same for a search, during which the user types on.
    GetItemList* searchItems(Fields data) { return get("/getItemList", data).withInput(); }
    GetTagList* getTagList(Fields data) { return get("/getTagList", data); }
    GetCardOrderInfo* getCardOrderInfo(Fields data) { return get("/getCardOrderInfo", data); }
    BatchUpdateOrder* batchUpdateOrder(Fields data) { return post("/batchUpdateOrder", data); }
    BatchUpdateOrder* batchUpdateRoomOrder(Fields data) { return post("/batchUpdateRoomOrder", data); }
    GetRePrintOrderList* getRePrintOrderList(Fields data) { return get("/getRePrintOrderList", data); }
    GetSumList* getSumList(Fields data) { return get("/getSumList", data); }
    GetHardCardCallList* getHardCardCallList(Fields data = {}) { return get("/getHardCardCallList", data); }
    ApiRes* addWaitCallInfos(Fields data) { return post("/addWaitCallInfos", data); }
    ApiRes* cacelWaitCall(Fields data) { return post("/cacelWaitCall", data); }
    ApiRes* crossCallInfo(Fields data) { return post("/crossCallInfo", data); }
    ApiRes* repeatCallInfo(Fields data) { return post("/repeatCallInfo", data); }
    ApiRes* callNextHardCards(Fields data) { return post("/callNextHardCards", data); }
    ApiRes* callHanrdCards(Fields data) { return post("/callHardCards", data); }
    ApiRes* reCallHandCards(Fields data) { return post("/reCallHardCards", data); }
    ApiRes* startServerCallInfo(Fields data) { return post("/startServerCallInfo", data); }
    CompleteWaitCall* completeWaitCall(Fields data) { return post("/completeWaitCall", data); }
    GetMqttCallInfoDataByKey* getMqttCallInfoDataByKey(Fields data)
    {
        return get("/getMqttCallInfoDataByKey", data);
    }
    GetHardCardAssessOrders* getHardCardAssessOrders(Fields data)
    {
        return get("/getHardCardAssessOrders", data);
    }
    ApiRes* assessHardCardOrders(Fields data) { return post("/assessHardCardOrders", data); }
    /// params gives the page and its length.
    GetHelpCallBashApiLogPageList* getHelpCallBashApiLogPageList(Fields data, const Params& params)
    {
        return get("/getHelpCallBashApiLogPageList", data, params);
    }
    GetMealTimesInfo* getMealTimesInfo(Fields data = {}) { return get("/getMealTimesInfo", data); }
    GetMealTimesStatistics* getMealTimesStatistics(Fields data) { return get("/getMealTimesStatistics", data); }
    GetMealCards* getMealCards(Fields data) { return get("/getMealCards", data); }
    AddCardMealTimes* addCardMealTimes(Fields data) { return post("/addCardMealTimes", data); }

private:
    friend class Singleton<Bca01Service>;
    Bca01Service() : Service(QStringLiteral("/bca01")) {}
};
