#pragma once

#include <QString>

/// The name of the engine that speaks Mandarin on this system, whether it is installed or not.
QString speechEngineName();
