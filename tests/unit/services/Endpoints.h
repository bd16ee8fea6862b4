#pragma once

#include "dto/ApiRes.h"

#include <QJsonObject>

#include <functional>
#include <vector>

class HouseProcess;

/// A method of a service. Its path bears its name and its verb follows from it, but for those in exceptions().
struct Endpoint
{
    QString method;
    QString path;
    bool isGet;
    bool takesFields;
    QString query; ///< what the method adds to the URL, as it stands there
    std::function<ApiRes*(const QJsonObject&)> call;
};

/// Every method of every service.
std::vector<Endpoint> endpoints();

/// Logs the front desk's manager in at the house; the areas that he works in. Empty when that fails.
QStringList logIn(const HouseProcess& house);
