#include "devices/ReaderSetting.h"

#include "common/Sqlite.h"

QString readerSetting(const QString& key)
{
    Sqlite settings;
    if (!settings.open())
        return {};
    const QString value = settings.query(key);
    settings.close();
    return value;
}
