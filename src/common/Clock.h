#pragma once

#include <QDateTime>

/// The program's one clock. May be read on any thread.
namespace Clock {

using Source = qint64 (*)();

/// Milliseconds since the Unix epoch.
qint64 nowMs();
/// Local time.
QDateTime now();
/// Puts another source in place of the system's clock; null takes the system's again.
void setSource(Source source);

} // namespace Clock
