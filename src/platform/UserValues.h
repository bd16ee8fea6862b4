#pragma once

#include <QString>

/// The per-user values of this terminal: its identity and its chosen line. They live in the registry under
/// HKEY_CURRENT_USER\KV_PANEL_V2 on Windows and in KV_PANEL_V2.ini of the user's configuration folder
/// elsewhere.
namespace UserValues {

/// An empty string when the value is missing. Read from the store anew each time.
QString read(const QString& key);
/// False when the store couldn't be written.
bool write(const QString& key, const QString& value);
/// Where they lie: a key of the registry or a file.
QString path();

} // namespace UserValues
