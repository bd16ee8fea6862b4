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
    GetStaffInfo* getStaffInfo(const QJsonObject& data);
    GetStaffWorkInfo* getStaffWorkInfo(const QJsonObject& data);
    GetStaffItemList* getStaffItemList(const QJsonObject& data);
    ApiRes* startServer(const QJsonObject& data);
    ApiRes* startServerWithoutOrder(const QJsonObject& data);
    ApiRes* addServer(const QJsonObject& data);
    ApiRes* changeServer(const QJsonObject& data);
    ApiRes* changeCard(const QJsonObject& data);
    ApiRes* chgAssignType(const QJsonObject& data);
    ApiRes* chargeBack(const QJsonObject& data);
    EndServer* endServer(const QJsonObject& data);
    ApiRes* updateStaffWorkStatus(const QJsonObject& data);

private:
    friend class Singleton<Bda02Service>;
    Bda02Service() : Service(QStringLiteral("/bda02")) {}
};
