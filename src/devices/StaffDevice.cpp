#include "devices/StaffDevice.h"

#include "devices/SerialPort.h"

StaffDevice* StaffDevice::initDevice() { return new SerialPort; }
