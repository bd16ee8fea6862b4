#pragma once

#include "dto/staff/StaffRecords.h"
#include "services/Service.h"

/// The staff list.
class HttpUtils : public Service, public Singleton<HttpUtils>
{
    Q_OBJECT

public:
    GetStaffList* getStaffList1(Fields data) { return get("/getStaffList", data); }

private:
    friend class Singleton<HttpUtils>;
    HttpUtils() : Service(QStringLiteral("/bea01")) {}
};
