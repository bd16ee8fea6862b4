#pragma once

#include "print/PosPrint.h"

/// A slip of each kind from an ordinary evening of the house.
namespace Samples {

constexpr char storeName[] = "云水间汤泉会馆";

consumer_print_struct order();
consumer_print_struct orderAgain();
transfer_print_struct transfer();
end_server_print_struct technicianEnd();
sell_sum_print_struct salesReport();
buffet_print_struct buffet();
open_room_print_struct openRoom();
leave_room_print_struct leaveRoom();
js_server_print serviceEnd();

consumer_item_struct item(const char* name, double num, double price, const char* staffNo = "");

struct Slip
{
    const char* name;
    int kind;
    QVariant record;
};
/// All nine, named as the pictures and the golden texts are.
QVector<Slip> all();

/// Where the clock stands while they print.
qint64 printedAtMs();

} // namespace Samples
