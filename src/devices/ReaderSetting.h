#pragma once

#include <QString>

/// A setting of this machine, empty when it isn't there or the settings can't be opened. Main thread.
QString readerSetting(const QString& key);
