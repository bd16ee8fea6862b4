#pragma once

#include "dto/ApiRes.h"

#include <QJsonObject>

#include <functional>
#include <vector>

/// One endpoint as a service method calls it.
struct CatalogueRow
{
    const char* method; ///< of the service
    const char* verb;
    const char* path;
    QJsonObject fields; ///< what a caller gives, all in the signed JSON
    const char* query;  ///< what the method adds to the URL, as it stands there
    std::function<ApiRes*(const QJsonObject&)> call;
};

/// Every method of every service.
std::vector<CatalogueRow> catalogue();
