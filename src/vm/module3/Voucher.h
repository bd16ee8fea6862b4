#pragma once

#include "dto/staff/VoucherRecords.h"

/// Prints the technician's vouchers of an ended service, as many as the terminal is set to.
void printVouchers(const EndServerDto& end);
