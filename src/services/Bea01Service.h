#pragma once

#include "dto/staff/GuestOrderRecords.h"
#include "services/Service.h"

/// Moving orders from hand card to hand card.
class Bea01Service : public Service, public Singleton<Bea01Service>
{
    Q_OBJECT

public:
    GetOrderListNew* getOrderListNew(Fields data) { return get("/getOrderListNew", data); }
    ApiRes* transferAct(Fields data) { return post("/transferAct", data); }

private:
    friend class Singleton<Bea01Service>;
    Bea01Service() : Service(QStringLiteral("/bea01")) {}
};
