#include "devices/HandCardDevice.h"

#include "devices/As_Device.h"
#include "devices/Sn_Sdk.h"
#include "devices/Tg_Device.h"
#include "devices/dp_sdk.h"

HandCardDevice* HandCardDevice::initDevice(int lockType)
{
    switch (lockType) {
    case 1:
    case 2:
        return new As_Device;
    case 4:
    case 5:
        return new Tg_Device;
    case 7:
    case 8:
        return new Sn_Sdk;
    case 19:
    case 20:
        return new dp_sdk;
    default:
        return nullptr;
    }
}
