#pragma once

#include "devices/RfReader.h"

/// Driver of the reader models 1 and 2.
class As_Device : public RfReader
{
public:
    As_Device() : RfReader(QStringLiteral("RF003Reader.dll")) { finishLoading(bindAll()); }
};
