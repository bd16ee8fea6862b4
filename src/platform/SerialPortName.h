#pragma once

#include <QString>

/// Where the serial port that the settings call "COM1", "COM2", ... is on this machine.
///
/// Windows knows the name itself. Elsewhere "COMn" is the device that KV_PANEL_COMn names, else the link
/// kv-comn in the device folder when it is there, else the n-th built-in port. Any other name comes back as it
/// is.
QString serialPortName(const QString& name, const QString& deviceFolder = QStringLiteral("/dev"));
