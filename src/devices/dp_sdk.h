#pragma once

#include "devices/RfReader.h"

/// Driver of the reader models 19 and 20.
class dp_sdk : public RfReader
{
public:
    dp_sdk() : RfReader(QStringLiteral("RF008Reader_Pub.DLL"))
    {
        finishLoading(bindAll(), QStringLiteral("RF008Reader_Pub初始化成功"));
    }
};
