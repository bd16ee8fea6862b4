#pragma once

#include <QStringList>

/// The names that the print setting may hold: the system's printers, then those that our own receipt library
/// drives itself.
QStringList installedPrinters();
