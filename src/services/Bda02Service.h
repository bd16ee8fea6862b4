#pragma once

#include "dto/staff/ServiceRecords.h"
#include "dto/staff/StaffRecords.h"
#include "dto/staff/VoucherRecords.h"
#include "services/Service.h"

/// Technicians and the service clock.
class Bda02Service : public Service, public Singleton<Bda02Service>
{
    Q_OBJECT

public:
    GetStaffInfo* getStaffInfo(Fields data) { return get("/getStaffInfo", data); }
    GetStaffWorkInfo* getStaffWorkInfo(Fields data) { return get("/getStaffWorkInfo", data); }
    GetStaffItemList* getStaffItemList(Fields data) { return get("/getStaffItemList", data); }
    ApiRes* startServer(Fields data) { return post("/startServer", data); }
    ApiRes* startServerWithoutOrder(Fields data) { return post("/startServerWithoutOrder", data); }
    ApiRes* addServer(Fields data) { return post("/addServer", data); }
    ApiRes* changeServer(Fields data) { return post("/changeServer", data); }
    ApiRes* changeCard(Fields data) { return post("/changeCard", data); }
    ApiRes* chgAssignType(Fields data) { return post("/chgAssignType", data); }
    ApiRes* chargeBack(Fields data) { return post("/chargeBack", data); }
    EndServer* endServer(Fields data) { return post("/endServer", data); }
    ApiRes* updateStaffWorkStatus(Fields data) { return post("/updateStaffWorkStatus", data); }

private:
    friend class Singleton<Bda02Service>;
    Bda02Service() : Service(QStringLiteral("/bda02")) {}
};
