#include "Endpoints.h"

#include "common/GlobalConfig.h"
#include "services/Baa00Service.h"
#include "services/Baa01Service.h"
#include "services/Bba01Service.h"
#include "services/Bca01Service.h"
#include "services/Bda02Service.h"
#include "services/Bea01Service.h"
#include "services/Caa04Service.h"
#include "services/HttpUtils.h"
#include "services/KvsystemService.h"
#include "services/Reply.h"
#include "support/HouseProcess.h"

namespace {

struct Exception
{
    const char* path;
    const char* query = "";
};

const QMap<QString, Exception>& exceptions()
{
    static const QMap<QString, Exception> table{
        {"getSysInitByAuthCode", {"/baa00/getSysInitByAuthCode", "&secretKey=key-1"}},
        {"loginMod", {"/baa00/loginMod", "&secretKey=key-1"}},
        {"getSysApiReqUrls", {"/kvsystem/common/getSysApiReqUrls"}},
        {"getSysMqttInfo", {"/kvsystem/common/getSysMqttInfo"}},
        {"getTrmSelfOrderSum", {"/baa01/getTrmSelfOdrSum"}},
        {"getTrmSelfOrderDetail", {"/baa01/getTrmSelfOdrDetail"}},
        {"getHandCardList", {"/baa01/getHardCardList", "&limit=10000&page=1"}},
        {"getRoomSortList", {"/bba01/getRoomList"}},
        {"getRoomDetailNew1", {"/bba01/getRoomDetailNew"}},
        {"getRoomPlanNew", {"/bba01/getPlanListNew"}},
        {"getItemTypeList", {"/bca01/getTypeList"}},
        {"callHanrdCards", {"/bca01/callHardCards"}},
        {"reCallHandCards", {"/bca01/reCallHardCards"}},
        {"getHelpCallBashApiLogPageList", {"/bca01/getHelpCallBashApiLogPageList", "&limit=200&page=1"}},
        {"getStaffList1", {"/bea01/getStaffList"}},
    };
    return table;
}

using Fields = const QJsonObject&;

template <typename S, typename M>
Endpoint endpoint(const QString& name, M method)
{
    const QString service = QString(S::staticMetaObject.className()).remove("Service").toLower();
    const Exception exception = exceptions().value(name);
    const auto call = [method](Fields fields) -> ApiRes* {
        S* object = S::getInstance();
        if constexpr (std::is_invocable_v<M, S*>)
            return (object->*method)();
        else if constexpr (std::is_invocable_v<M, S*, Fields>)
            return (object->*method)(fields);
        else if constexpr (std::is_invocable_v<M, S*, QString>)
            return (object->*method)("key-1");
        else if constexpr (std::is_invocable_v<M, S*, Fields, QString>)
            return (object->*method)(fields, "key-1");
        else
            return (object->*method)(fields, {{"page", "1"}, {"limit", "200"}});
    };
    return {name,
            exception.path ? QString(exception.path) : "/" + service + "/" + name,
            name.startsWith("get") && name != "getAuthInfoByCodes",
            !std::is_invocable_v<M, S*> && !std::is_invocable_v<M, S*, QString>,
            exception.query,
            call};
}

} // namespace

// clang-format off
#define E(method) endpoint<S>(#method, &S::method)

std::vector<Endpoint> endpoints()
{
    std::vector<Endpoint> all;
    const auto add = [&all](const std::vector<Endpoint>& some) { all.insert(all.end(), some.begin(), some.end()); };
    { using S = Baa00Service; add({E(getSysInitByAuthCode), E(loginMod), E(keepLogin), E(getAuthInfoByCodes)}); }
    { using S = KvsystemService; add({E(getSysApiReqUrls), E(getSysMqttInfo)}); }
    { using S = Caa04Service; add({E(callStaff)}); }
    { using S = HttpUtils; add({E(getStaffList1)}); }
    { using S = Bea01Service; add({E(getOrderListNew), E(transferAct)}); }
    { using S = Baa01Service; add({
        E(getHardCardDetail), E(getCardSelfOrder), E(selfInput), E(editPkgCards), E(getTrmSelfOrderSum),
        E(getTrmSelfOrderDetail), E(getPkgTktsList), E(getTodaySum), E(getHandCardList)}); }
    { using S = Bba01Service; add({
        E(getRoomList), E(getRoomSortList), E(getFloorSum), E(getRoomTypeSum), E(getOverTime), E(getRoomDetailNew),
        E(getRoomDetailNew1), E(getRoomConsList), E(getRoomPlanNew), E(getOccTypeList), E(getEmptyRoomList),
        E(getCanMergeRoomList), E(openMassRoom), E(openRestRoom), E(chgOccupyRoom), E(chgCleanRoom), E(setCleanRoom),
        E(changeRoom), E(massToRestRoom), E(restToMassRoom), E(changeFeePlan), E(restRoomAddTime), E(unpackRoom),
        E(mergeRoom), E(splitRoom), E(roomAddCard), E(leaveRoomNew), E(cancelRoom), E(reSetRoomTime), E(setRemark)}); }
    { using S = Bca01Service; add({
        E(getItemTypeList), E(getItemList), E(getTagList), E(getCardOrderInfo), E(batchUpdateOrder),
        E(batchUpdateRoomOrder), E(getRePrintOrderList), E(getSumList), E(getHardCardCallList), E(addWaitCallInfos),
        E(cacelWaitCall), E(crossCallInfo), E(repeatCallInfo), E(callNextHardCards), E(callHanrdCards),
        E(reCallHandCards), E(startServerCallInfo), E(completeWaitCall), E(getMqttCallInfoDataByKey),
        E(getHardCardAssessOrders), E(assessHardCardOrders), E(getHelpCallBashApiLogPageList), E(getMealTimesInfo),
        E(getMealTimesStatistics), E(getMealCards), E(addCardMealTimes)}); }
    { using S = Bda02Service; add({
        E(getStaffInfo), E(getStaffWorkInfo), E(getStaffItemList), E(startServer), E(startServerWithoutOrder),
        E(addServer), E(changeServer), E(changeCard), E(chgAssignType), E(chargeBack), E(endServer),
        E(updateStaffWorkStatus)}); }
    return all;
}
// clang-format on

QStringList logIn(const HouseProcess& house)
{
    GlobalConfig* config = GlobalConfig::getInstance();
    if (!house.isReady() || !config->initLibcurl())
        return {};
    config->setApiUrl(house.url());
    config->setApiUrls({house.url()});
    const QString key = QStringLiteral("demo-secret-key-0001");
    const auto init = held(Baa00Service::getInstance()->getSysInitByAuthCode(key));
    const auto login = held(Baa00Service::getInstance()->loginMod(
        {{"workNo", "1001"}, {"pwd", "1001"}, {"modCode", "ROOMINFO_CTRL"}}, key));
    if (!init->data() || !login->data())
        return {};
    config->setStoreId(init->data()->terminalInfo()->storeId());
    config->setCompId(init->data()->terminalInfo()->compId());
    config->setDeviceId(init->data()->terminalInfo()->id());
    config->setToken(login->data()->token());
    config->setSecret(login->data()->secret());
    config->userInfo()->update(login->data()->userInfo());
    QStringList areas;
    for (const auto* area : login->data()->workarealist())
        areas.append(area->areaId());
    return areas;
}
