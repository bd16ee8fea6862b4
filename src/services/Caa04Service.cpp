#include "services/Caa04Service.h"

ApiRes* Caa04Service::callStaff(const QJsonObject& data) { return post<ApiRes>("/callStaff", data); }
