#pragma once

#include <QString>

/// The program's one source of nonces. Main thread.
namespace Nonce {

using Source = QString (*)();

/// 32 lower-case hexadecimal digits, never the same twice.
QString next();
/// Puts another source in place of the system's; null takes the system's again.
void setSource(Source source);

} // namespace Nonce
