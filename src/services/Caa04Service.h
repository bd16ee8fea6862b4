#pragma once

#include "dto/ApiRes.h"
#include "services/Service.h"

/// Calling staff to a room.
class Caa04Service : public Service, public Singleton<Caa04Service>
{
    Q_OBJECT

public:
    ApiRes* callStaff(Fields data) { return post("/callStaff", data); }

private:
    friend class Singleton<Caa04Service>;
    Caa04Service() : Service(QStringLiteral("/caa04")) {}
};
