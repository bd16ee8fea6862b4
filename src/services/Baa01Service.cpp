#include "services/Baa01Service.h"

GetHardCardDetail* Baa01Service::getHardCardDetail(const QJsonObject& data)
{
    return get<GetHardCardDetail>("/getHardCardDetail", data);
}

GetCardSelfOrder* Baa01Service::getCardSelfOrder(const QJsonObject& data)
{
    return get<GetCardSelfOrder>("/getCardSelfOrder", data);
}

ApiRes* Baa01Service::selfInput(const QJsonObject& data) { return post<ApiRes>("/selfInput", data); }

ApiRes* Baa01Service::editPkgCards(const QJsonObject& data) { return post<ApiRes>("/editPkgCards", data); }

GetTrmSelfOrderSum* Baa01Service::getTrmSelfOrderSum(const QJsonObject& data)
{
    return get<GetTrmSelfOrderSum>("/getTrmSelfOdrSum", data);
}

GetTrmSelfOrderDetail* Baa01Service::getTrmSelfOrderDetail(const QJsonObject& data)
{
    return get<GetTrmSelfOrderDetail>("/getTrmSelfOdrDetail", data);
}

GetPkgTktsList* Baa01Service::getPkgTktsList(const QJsonObject& data)
{
    return get<GetPkgTktsList>("/getPkgTktsList", data);
}

GetTodaySum* Baa01Service::getTodaySum() { return get<GetTodaySum>("/getTodaySum"); }

GetHandCardList* Baa01Service::getHandCardList(const QJsonObject& data)
{
    return get<GetHandCardList>(
        "/getHardCardList", data,
        {{QStringLiteral("page"), QStringLiteral("1")}, {QStringLiteral("limit"), QStringLiteral("10000")}});
}
