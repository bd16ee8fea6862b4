#pragma once

#include "print/PrintRecords.h"

class SlipPaper;

/// The layouts. Each puts one whole slip on the paper, from its begin to its end.
namespace Slips {

/// number stands behind the area, to tell copies apart.
void order(SlipPaper& paper, const consumer_print_struct& record, const QString& storeName, int number,
           bool isReprint);
void buffet(SlipPaper& paper, const buffet_print_struct& record, const QString& storeName);

void openRoom(SlipPaper& paper, const open_room_print_struct& record, const QString& storeName);
void leaveRoom(SlipPaper& paper, const leave_room_print_struct& record, const QString& storeName);

void serviceEnd(SlipPaper& paper, const js_server_print& record);
void technicianEnd(SlipPaper& paper, const end_server_print_struct& record);

void salesReport(SlipPaper& paper, const sell_sum_print_struct& record);
void transfer(SlipPaper& paper, const transfer_print_struct& record, const QString& storeName);

/// What a printer can do: columns, characters, heights, the cut.
void test(SlipPaper& paper, const QString& storeName);

} // namespace Slips
