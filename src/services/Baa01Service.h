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
    GetHardCardDetail* getHardCardDetail(const QJsonObject& data);
    GetCardSelfOrder* getCardSelfOrder(const QJsonObject& data);
    ApiRes* selfInput(const QJsonObject& data);
    ApiRes* editPkgCards(const QJsonObject& data);
    GetTrmSelfOrderSum* getTrmSelfOrderSum(const QJsonObject& data = {});
    GetTrmSelfOrderDetail* getTrmSelfOrderDetail(const QJsonObject& data = {});
    GetPkgTktsList* getPkgTktsList(const QJsonObject& data);
    GetTodaySum* getTodaySum();
    /// All cards in one page.
    GetHandCardList* getHandCardList(const QJsonObject& data);

private:
    friend class Singleton<Baa01Service>;
    Baa01Service() : Service(QStringLiteral("/baa01")) {}
};
