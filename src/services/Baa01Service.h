#pragma once

#include "dto/card/CardRecords.h"
#include "dto/card/SelfRecords.h"
#include "dto/sales/SumRecords.h"
#include "dto/sales/TicketRecords.h"
#include "services/Service.h"

/// Hand cards, self entry and today's figures.
class Baa01Service : public Service, public Singleton<Baa01Service>
{
    Q_OBJECT

public:
    GetHardCardDetail* getHardCardDetail(Fields data) { return get("/getHardCardDetail", data); }
    GetCardSelfOrder* getCardSelfOrder(Fields data) { return get("/getCardSelfOrder", data); }
    ApiRes* selfInput(Fields data) { return post("/selfInput", data); }
    ApiRes* editPkgCards(Fields data) { return post("/editPkgCards", data); }
    GetTrmSelfOrderSum* getTrmSelfOrderSum(Fields data = {}) { return get("/getTrmSelfOdrSum", data); }
    GetTrmSelfOrderDetail* getTrmSelfOrderDetail(Fields data = {}) { return get("/getTrmSelfOdrDetail", data); }
    GetPkgTktsList* getPkgTktsList(Fields data) { return get("/getPkgTktsList", data); }
    GetTodaySum* getTodaySum() { return get("/getTodaySum"); }
    /// All cards in one page.
    GetHandCardList* getHandCardList(Fields data)
    {
        return get("/getHardCardList", data,
                   {{QStringLiteral("page"), QStringLiteral("1")},
                    {QStringLiteral("limit"), QStringLiteral("10000")}});
    }

private:
    friend class Singleton<Baa01Service>;
    Baa01Service() : Service(QStringLiteral("/baa01")) {}
};
