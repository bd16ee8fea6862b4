#pragma once

#include "dto/sales/OrderRecords.h"
#include "vm/shared/OrderLines.h"

class HandCardInfoDto;

// The slips of the till.

/// Prints a saved order; card is null for a room. With the terminal's setting only one with a chargeback.
void printSale(const BatchUpdateOrder& reply, const QVector<new_item_struct>& lines,
               const HandCardInfoDto* card, const QString& remark);

/// Prints an order of before once more; nothing without lines.
void printSaleAgain(const Array<ReprintDto*>& lines);
