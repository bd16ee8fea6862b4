#include "platform/UserValues.h"

#include <QSettings>

#ifndef Q_OS_WIN
#include <QDir>
#endif

namespace {

#ifdef Q_OS_WIN
constexpr QSettings::Format storeFormat = QSettings::NativeFormat;
#else
constexpr QSettings::Format storeFormat = QSettings::IniFormat;
#endif

} // namespace

QString UserValues::path()
{
#ifdef Q_OS_WIN
    return QStringLiteral("HKEY_CURRENT_USER\\KV_PANEL_V2");
#else
    QString folder = qEnvironmentVariable("XDG_CONFIG_HOME");
    if (folder.isEmpty())
        folder = QDir::homePath() + QStringLiteral("/.config");
    return folder + QStringLiteral("/KV_PANEL_V2.ini");
#endif
}

QString UserValues::read(const QString& key)
{
    QSettings store(path(), storeFormat);
    store.setIniCodec("UTF-8");
    const QVariant value = store.value(key);
    // A comma in a hand-edited INI line makes a list of it; the registry gives it whole.
    if (value.type() == QVariant::StringList)
        return value.toStringList().join(QLatin1Char(','));
    return value.toString();
}

bool UserValues::write(const QString& key, const QString& value)
{
    QSettings store(path(), storeFormat);
    store.setIniCodec("UTF-8");
    store.setValue(key, value);
    store.sync();
    return store.status() == QSettings::NoError;
}
