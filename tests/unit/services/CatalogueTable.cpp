#include "CatalogueTable.h"

#include "services/Baa00Service.h"
#include "services/Baa01Service.h"
#include "services/Bba01Service.h"
#include "services/Bca01Service.h"
#include "services/Bda02Service.h"
#include "services/Bea01Service.h"
#include "services/Caa04Service.h"
#include "services/HttpUtils.h"
#include "services/KvsystemService.h"

#include <QJsonArray>

namespace {

/// Calls a method that takes the fields, or one that takes none.
template <typename S, typename R>
std::function<ApiRes*(const QJsonObject&)> of(R* (S::*method)(const QJsonObject&))
{
    return [method](const QJsonObject& fields) { return (S::getInstance()->*method)(fields); };
}

template <typename S, typename R>
std::function<ApiRes*(const QJsonObject&)> of(R* (S::*method)())
{
    return [method](const QJsonObject&) { return (S::getInstance()->*method)(); };
}

const QJsonObject none;
const QJsonObject roomId{{"roomId", "1"}};
const QJsonArray two{"1", "2"};
const QJsonObject typedOperator{{"staffNo", "601"}, {"staffPwd", "601"}};

QJsonObject with(QJsonObject fields, const QJsonObject& more)
{
    for (auto it = more.begin(); it != more.end(); ++it)
        fields.insert(it.key(), it.value());
    return fields;
}

void appendSystem(std::vector<CatalogueRow>& rows)
{
    rows.push_back(
        {"getSysInitByAuthCode", "GET", "/baa00/getSysInitByAuthCode", none, "&secretKey=key-1",
         [](const QJsonObject&) { return Baa00Service::getInstance()->getSysInitByAuthCode("key-1"); }});
    rows.push_back(
        {"loginMod",
         "POST",
         "/baa00/loginMod",
         {{"cardUid", "1"}, {"modCode", "M"}, {"type", 1}},
         "&secretKey=k",
         [](const QJsonObject& fields) { return Baa00Service::getInstance()->loginMod(fields, "k"); }});
    rows.push_back({"keepLogin", "POST", "/baa00/keepLogin", none, "", of(&Baa00Service::keepLogin)});
    rows.push_back({"getAuthInfoByCodes",
                    "POST",
                    "/baa00/getAuthInfoByCodes",
                    {{"authCodes", two}},
                    "",
                    of(&Baa00Service::getAuthInfoByCodes)});
    rows.push_back({"getSysApiReqUrls",
                    "GET",
                    "/kvsystem/common/getSysApiReqUrls",
                    {{"type", 2}, {"tAuthCode", "KV-DEMO-0001"}},
                    "",
                    of(&KvsystemService::getSysApiReqUrls)});
    rows.push_back({"getSysMqttInfo", "GET", "/kvsystem/common/getSysMqttInfo", none, "",
                    of(&KvsystemService::getSysMqttInfo)});
    rows.push_back({"callStaff",
                    "POST",
                    "/caa04/callStaff",
                    {{"roomId", "1"}, {"contId", "2"}, {"num", 1}},
                    "",
                    of(&Caa04Service::callStaff)});
}

void appendCards(std::vector<CatalogueRow>& rows)
{
    rows.push_back({"getHardCardDetail",
                    "GET",
                    "/baa01/getHardCardDetail",
                    {{"cardno", "1001"}},
                    "",
                    of(&Baa01Service::getHardCardDetail)});
    rows.push_back({"getCardSelfOrder",
                    "GET",
                    "/baa01/getCardSelfOrder",
                    {{"cardUid", "x"}},
                    "",
                    of(&Baa01Service::getCardSelfOrder)});
    rows.push_back({"selfInput", "POST", "/baa01/selfInput", {{"id", "1"}}, "", of(&Baa01Service::selfInput)});
    rows.push_back({"editPkgCards",
                    "POST",
                    "/baa01/editPkgCards",
                    {{"cardId", "1"}, {"orderId", "2"}, {"type", 1}, {"checkMode", 2}, {"pkgTktId", "3"}},
                    "",
                    of(&Baa01Service::editPkgCards)});
    rows.push_back({"getTrmSelfOrderSum", "GET", "/baa01/getTrmSelfOdrSum", none, "",
                    of(&Baa01Service::getTrmSelfOrderSum)});
    rows.push_back({"getTrmSelfOrderDetail", "GET", "/baa01/getTrmSelfOdrDetail", none, "",
                    of(&Baa01Service::getTrmSelfOrderDetail)});
    rows.push_back({"getPkgTktsList",
                    "GET",
                    "/baa01/getPkgTktsList",
                    {{"cardType", "1"}},
                    "",
                    of(&Baa01Service::getPkgTktsList)});
    rows.push_back({"getTodaySum", "GET", "/baa01/getTodaySum", none, "", of(&Baa01Service::getTodaySum)});
    rows.push_back({"getHandCardList",
                    "GET",
                    "/baa01/getHardCardList",
                    {{"status", 1}, {"usedCardSort", 1}},
                    "&limit=10000&page=1",
                    of(&Baa01Service::getHandCardList)});
    rows.push_back({"getOrderListNew",
                    "GET",
                    "/bea01/getOrderListNew",
                    {{"cardno", "1001"}},
                    "",
                    of(&Bea01Service::getOrderListNew)});
    rows.push_back(
        {"transferAct",
         "POST",
         "/bea01/transferAct",
         {{"srcCardInfo", QJsonArray{QJsonObject{{"cardNo", "1"}, {"cardId", "2"}, {"orderIds", two}}}},
          {"newCardId", "3"},
          {"newCardNo", "4"}},
         "",
         of(&Bea01Service::transferAct)});
    rows.push_back({"getStaffList1",
                    "GET",
                    "/bea01/getStaffList",
                    {{"staffNo", "801"}},
                    "",
                    of(&HttpUtils::getStaffList1)});
}

void appendRooms(std::vector<CatalogueRow>& rows)
{
    const QJsonObject board{{"status", "1"}, {"floorId", two}, {"houseType", two}};
    const QJsonObject opening{{"id", "1"}, {"cardids", two}};
    const QJsonObject restPlan{{"newPlanFlg", 1}, {"type", 1}, {"planid", "9"}};
    const auto get = [&rows](const char* method, const char* path, const QJsonObject& fields, auto call) {
        rows.push_back({method, "GET", path, fields, "", call});
    };
    const auto post = [&rows](const char* path, const QJsonObject& fields, auto call) {
        rows.push_back({path + qstrlen("/bba01/"), "POST", path, fields, "", call});
    };
    get("getRoomList", "/bba01/getRoomList", board, of(&Bba01Service::getRoomList));
    get("getRoomSortList", "/bba01/getRoomList", with(board, {{"sortType", 1}}),
        of(&Bba01Service::getRoomSortList));
    get("getFloorSum", "/bba01/getFloorSum", none, of(&Bba01Service::getFloorSum));
    get("getRoomTypeSum", "/bba01/getRoomTypeSum", none, of(&Bba01Service::getRoomTypeSum));
    get("getOverTime", "/bba01/getOverTime", none, of(&Bba01Service::getOverTime));
    get("getRoomDetailNew", "/bba01/getRoomDetailNew", roomId, of(&Bba01Service::getRoomDetailNew));
    get("getRoomDetailNew1", "/bba01/getRoomDetailNew", {{"roomNo", "301"}},
        of(&Bba01Service::getRoomDetailNew1));
    get("getRoomConsList", "/bba01/getRoomConsList", roomId, of(&Bba01Service::getRoomConsList));
    get("getRoomPlanNew", "/bba01/getPlanListNew", with(roomId, {{"planType", 1}}),
        of(&Bba01Service::getRoomPlanNew));
    get("getOccTypeList", "/bba01/getOccTypeList", none, of(&Bba01Service::getOccTypeList));
    get("getEmptyRoomList", "/bba01/getEmptyRoomList", {{"roomNo", ""}}, of(&Bba01Service::getEmptyRoomList));
    get("getCanMergeRoomList", "/bba01/getCanMergeRoomList", {{"roomNo", "301"}, {"schRoomNo", ""}},
        of(&Bba01Service::getCanMergeRoomList));
    post("/bba01/openMassRoom", with(opening, {{"hours", 2}, {"isConn", 1}}), of(&Bba01Service::openMassRoom));
    post("/bba01/openRestRoom", with(opening, restPlan), of(&Bba01Service::openRestRoom));
    post("/bba01/chgOccupyRoom", {{"id", "1"}, {"occType", "2"}, {"isOccupy", 1}, {"remark", "茶"}},
         of(&Bba01Service::chgOccupyRoom));
    post("/bba01/chgCleanRoom", {{"id", "1"}, {"isClean", 1}}, of(&Bba01Service::chgCleanRoom));
    post("/bba01/setCleanRoom", {{"id", "1"}, {"staffId", "2"}, {"cleanFlg", 1}},
         of(&Bba01Service::setCleanRoom));
    post("/bba01/changeRoom",
         {{"oldRoomId", "1"},
          {"status", 3},
          {"newRoomId", "2"},
          {"planId", "9"},
          {"isClean", 1},
          {"newPlanFlg", 1}},
         of(&Bba01Service::changeRoom));
    post("/bba01/massToRestRoom", with(opening, restPlan), of(&Bba01Service::massToRestRoom));
    post("/bba01/restToMassRoom",
         with(opening, {{"cardId", "2"}, {"hours", 2}, {"newPlanFlg", 1}, {"type", 1}}),
         of(&Bba01Service::restToMassRoom));
    post("/bba01/changeFeePlan", with(roomId, {{"newPlanFlg", 1}, {"planId", "9"}}),
         of(&Bba01Service::changeFeePlan));
    post("/bba01/restRoomAddTime", with(roomId, {{"hours", 1}}), of(&Bba01Service::restRoomAddTime));
    post("/bba01/unpackRoom", {{"oldRoomId", "1"}, {"newRoomNo", "302"}, {"cardIds", two}},
         of(&Bba01Service::unpackRoom));
    post("/bba01/mergeRoom", {{"roomIdArr", two}}, of(&Bba01Service::mergeRoom));
    post("/bba01/splitRoom", {{"groupKey", "g"}, {"roomIdArr", two}}, of(&Bba01Service::splitRoom));
    post("/bba01/roomAddCard", {{"roomNo", "301"}, {"cardids", two}}, of(&Bba01Service::roomAddCard));
    post("/bba01/leaveRoomNew", with(opening, {{"status", 2}, {"cardId", "2"}}),
         of(&Bba01Service::leaveRoomNew));
    post("/bba01/cancelRoom", {{"id", "1"}, {"authType", 2}}, of(&Bba01Service::cancelRoom));
    post("/bba01/reSetRoomTime", roomId, of(&Bba01Service::reSetRoomTime));
    post("/bba01/setRemark", {{"id", "1"}, {"remark", "\"茶\" & 水"}}, of(&Bba01Service::setRemark));
}

void appendSales(std::vector<CatalogueRow>& rows)
{
    const QJsonObject order{
        {"items", QJsonArray{}}, {"opType", 1}, {"remark", "少冰"}, {"mode", 0}, {"roomId", ""}};
    const auto get = [&rows](const char* method, const char* path, const QJsonObject& fields, auto call) {
        rows.push_back({method, "GET", path, fields, "", call});
    };
    const auto post = [&rows](const char* method, const char* path, const QJsonObject& fields, auto call) {
        rows.push_back({method, "POST", path, fields, "", call});
    };
    get("getItemTypeList", "/bca01/getTypeList", {{"selAreaId", "1"}}, of(&Bca01Service::getItemTypeList));
    get("getItemList", "/bca01/getItemList",
        {{"selAreaId", "1"}, {"typeId", "2"}, {"plucode", "3"}, {"barCode", "4"}},
        of(&Bca01Service::getItemList));
    get("getTagList", "/bca01/getTagList", {{"itemId", "1"}}, of(&Bca01Service::getTagList));
    get("getCardOrderInfo", "/bca01/getCardOrderInfo", {{"cardno", "1001"}, {"roomNo", "301"}},
        of(&Bca01Service::getCardOrderInfo));
    post("batchUpdateOrder", "/bca01/batchUpdateOrder", with(order, {{"hardCardId", "1"}}),
         of(&Bca01Service::batchUpdateOrder));
    post("batchUpdateRoomOrder", "/bca01/batchUpdateRoomOrder", order, of(&Bca01Service::batchUpdateRoomOrder));
    get("getRePrintOrderList", "/bca01/getRePrintOrderList", {{"orderId", "1"}},
        of(&Bca01Service::getRePrintOrderList));
    get("getSumList", "/bca01/getSumList",
        {{"starttime", "2026-11-22 06:00:00"},
         {"endtime", "2026-11-23 06:00:00"},
         {"isOneItem", 0},
         {"selectLocal", 1},
         {"orderType", 2}},
        of(&Bca01Service::getSumList));
    get("getMealTimesInfo", "/bca01/getMealTimesInfo", none, of(&Bca01Service::getMealTimesInfo));
    get("getMealTimesStatistics", "/bca01/getMealTimesStatistics", {{"mealId", "1"}},
        of(&Bca01Service::getMealTimesStatistics));
    get("getMealCards", "/bca01/getMealCards", {{"mealId", "1"}}, of(&Bca01Service::getMealCards));
    post("addCardMealTimes", "/bca01/addCardMealTimes",
         {{"cardNo", "1001"}, {"mealId", "1"}, {"isChild", 1}, {"childNum", 2}},
         of(&Bca01Service::addCardMealTimes));
}

void appendCallQueue(std::vector<CatalogueRow>& rows)
{
    const auto get = [&rows](const char* method, const char* path, const QJsonObject& fields, auto call) {
        rows.push_back({method, "GET", path, fields, "", call});
    };
    const auto post = [&rows](const char* method, const char* path, const QJsonObject& fields, auto call) {
        rows.push_back({method, "POST", path, fields, "", call});
    };
    const QJsonObject readOperator{{"staffUid", "31927757"}};
    get("getHardCardCallList", "/bca01/getHardCardCallList", none, of(&Bca01Service::getHardCardCallList));
    post("addWaitCallInfos", "/bca01/addWaitCallInfos", with(typedOperator, {{"hardCardNo", "1001"}}),
         of(&Bca01Service::addWaitCallInfos));
    post("cacelWaitCall", "/bca01/cacelWaitCall", with(readOperator, {{"id", "1"}}),
         of(&Bca01Service::cacelWaitCall));
    post("crossCallInfo", "/bca01/crossCallInfo", with(typedOperator, {{"id", "1"}, {"isCall", 2}}),
         of(&Bca01Service::crossCallInfo));
    post("repeatCallInfo", "/bca01/repeatCallInfo", with(typedOperator, {{"id", "1"}}),
         of(&Bca01Service::repeatCallInfo));
    post("callNextHardCards", "/bca01/callNextHardCards", with(typedOperator, {{"callNum", 2}}),
         of(&Bca01Service::callNextHardCards));
    post("callHanrdCards", "/bca01/callHardCards", with(typedOperator, {{"id", "1"}, {"hardCardId", "2"}}),
         of(&Bca01Service::callHanrdCards));
    post("reCallHandCards", "/bca01/reCallHardCards", {{"hardCardId", "2"}},
         of(&Bca01Service::reCallHandCards));
    post("startServerCallInfo", "/bca01/startServerCallInfo", with(typedOperator, {{"hardCardNo", "1001"}}),
         of(&Bca01Service::startServerCallInfo));
    post("completeWaitCall", "/bca01/completeWaitCall", with(readOperator, {{"cardUid", "x"}}),
         of(&Bca01Service::completeWaitCall));
    get("getMqttCallInfoDataByKey", "/bca01/getMqttCallInfoDataByKey", {{"key", "k"}},
        of(&Bca01Service::getMqttCallInfoDataByKey));
    get("getHardCardAssessOrders", "/bca01/getHardCardAssessOrders",
        with(typedOperator, {{"hardCardNo", "1001"}}), of(&Bca01Service::getHardCardAssessOrders));
    post("assessHardCardOrders", "/bca01/assessHardCardOrders",
         {{"hardCardId", "1"},
          {"staffId", "2"},
          {"hardOrderAssess", QJsonArray{QJsonObject{{"hardOrderId", "3"}, {"assessInfoId", "4"}}}}},
         of(&Bca01Service::assessHardCardOrders));
    rows.push_back({"getHelpCallBashApiLogPageList",
                    "GET",
                    "/bca01/getHelpCallBashApiLogPageList",
                    {{"startTime", "2026-11-22 06:00:00"}, {"endTime", "2026-11-22 23:00:00"}},
                    "&limit=200&page=1",
                    [](const QJsonObject& fields) {
                        return Bca01Service::getInstance()->getHelpCallBashApiLogPageList(
                            fields, {{"page", "1"}, {"limit", "200"}});
                    }});
}

void appendTechnicians(std::vector<CatalogueRow>& rows)
{
    const QJsonObject start{
        {"staffId", "1"}, {"itemId", "2"}, {"cardNo", "1001"}, {"orderType", 1}, {"roomNo", "301"}};
    const auto get = [&rows](const char* method, const char* path, const QJsonObject& fields, auto call) {
        rows.push_back({method, "GET", path, fields, "", call});
    };
    const auto post = [&rows](const char* path, const QJsonObject& fields, auto call) {
        rows.push_back({path + qstrlen("/bda02/"), "POST", path, fields, "", call});
    };
    get("getStaffInfo", "/bda02/getStaffInfo", {{"staffNo", "801"}}, of(&Bda02Service::getStaffInfo));
    get("getStaffWorkInfo", "/bda02/getStaffWorkInfo", {{"staffId", "1"}}, of(&Bda02Service::getStaffWorkInfo));
    get("getStaffItemList", "/bda02/getStaffItemList", {{"staffId", "1"}}, of(&Bda02Service::getStaffItemList));
    post("/bda02/startServer", with(start, {{"orderId", "3"}}), of(&Bda02Service::startServer));
    post("/bda02/startServerWithoutOrder", with(start, {{"pushNo", "9"}}),
         of(&Bda02Service::startServerWithoutOrder));
    post("/bda02/addServer",
         {{"staffId", "1"},
          {"hardCardId", "2"},
          {"itemId", "3"},
          {"typeId", "6"},
          {"onTypeId", "6"},
          {"pushId", ""},
          {"num", 1},
          {"roomId", "5"}},
         of(&Bda02Service::addServer));
    post("/bda02/changeServer", {{"orderId", "1"}, {"itemId", "2"}, {"typeId", "6"}, {"onTypeId", "6"}},
         of(&Bda02Service::changeServer));
    post("/bda02/changeCard", {{"staffId", "1"}, {"cardId", "2"}, {"cardNo", "1001"}, {"roomId", "5"}},
         of(&Bda02Service::changeCard));
    post("/bda02/chgAssignType", {{"newType", 1}, {"orderId", "2"}}, of(&Bda02Service::chgAssignType));
    post("/bda02/chargeBack", {{"staffId", "1"}, {"orderIds", two}}, of(&Bda02Service::chargeBack));
    post("/bda02/endServer", {{"orderId", "1"}, {"pageType", 1}}, of(&Bda02Service::endServer));
    post("/bda02/updateStaffWorkStatus", {{"staffId", "1"}, {"serverStatus", 1}},
         of(&Bda02Service::updateStaffWorkStatus));
}

} // namespace

std::vector<CatalogueRow> catalogue()
{
    std::vector<CatalogueRow> rows;
    appendSystem(rows);
    appendCards(rows);
    appendRooms(rows);
    appendSales(rows);
    appendCallQueue(rows);
    appendTechnicians(rows);
    return rows;
}
