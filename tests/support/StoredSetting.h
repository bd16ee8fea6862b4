#pragma once

#include "common/Sqlite.h"

/// Stores a setting in the table of the working directory, made when it isn't there.
inline bool storeSetting(const QString& key, const QString& value)
{
    Sqlite settings;
    if (!settings.open() || !settings.createTable())
        return false;
    settings.addData(key, value);
    const bool isStored = settings.query(key) == value;
    settings.close();
    return isStored;
}
