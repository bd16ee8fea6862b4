#include "Samples.h"

#include "common/Clock.h"
#include "common/GlobalConfig.h"

namespace {

consumer_item_struct item(const char* name, double num, double price, const char* staffNo = "")
{
    return {name, num, price, num * price, staffNo, 1, "", "", "", 0, "", 0};
}

consumer_item_struct technicians(consumer_item_struct item, int kind, const char* pushNo = "")
{
    item.isJs = 1;
    item.serviceType = kind;
    item.pushNo = pushNo;
    return item;
}

consumer_item_struct takenBack(consumer_item_struct item, const char* createTime, const char* authNo = "",
                               const char* authName = "")
{
    item.status = 3;
    item.createTime = createTime;
    item.authNo = authNo;
    item.authName = authName;
    return item;
}

const consumer_item_struct juice = item("鲜榨西瓜汁", 2, 28);
const consumer_item_struct gift = item("毛尖茶[赠送]", 1, 48);
const char ordered[] = "2026-03-08 21:04:12";
const char now[] = "2026-03-08 21:05:30";

/// Every kind of line, and every way in which a field can be too long.
const QList<consumer_item_struct> manyLines = {
    item("二十列正好的项目名一", 1, 10, "8801选一"), // both touch what follows
    item("12345678901234567890X", 2, 10),            // loses its end
    technicians(item("a一二三四五六七八九十", 3, 10, "8802"), 3),
    technicians(item("一二三四五六七八九x十", 0.5, 10), 7, "9"), // a clock kind that nobody knows
    item("€果汁😀", 12345, 100),
    gift,
    takenBack(item("啤酒", -2, 18), "2026-03-08 20:15:00"),
    takenBack(technicians(item("足疗", -1, 128, "8803"), 5), "2026-03-08 20:30:00", "1000", "陈店长")};

/// Remark, card, room, desk, who printed, items.
consumer_print_struct order(const char* remark, const char* card, const char* room, const char* desk,
                            const char* name, const QList<consumer_item_struct>& items)
{
    return {1, "二楼休息大厅", ordered, card, room, desk, "1001", name, remark, items};
}

end_server_print_struct voucher(const QList<js_item_struct>& items, int surplus, const char* workNo = "8801")
{
    return {"8801", "208", "0168", surplus, items, workNo};
}

template <typename Record>
SampleSlip slip(const char* name, int kind, const Record& record,
                const PrintSettings& settings = Samples::terminal(false), int copies = 1)
{
    return {name, kind, QVariant::fromValue(record), settings, copies};
}

} // namespace

PrintSettings Samples::terminal(bool isIndent, int orderPrintNum)
{
    return {isIndent, "前台", "云水间汤泉会馆", orderPrintNum, false, true};
}

QVector<SampleSlip> Samples::evening()
{
    const consumer_item_struct massage = item("精油SPA90分钟", 1, 398, "8801");
    const QList<consumer_item_struct> lines = {
        juice, technicians(massage, 1, "8805"), gift,
        takenBack(item("现切果盘", -1, 68), "2026-03-08 20:15:00", "1000", "陈店长")};
    const QList<transfer_order_struct> moved = {
        {"鲜榨西瓜汁", "0168", 2, 28}, {"搓澡", "0168", 1, 58}, {"至尊泰式古法按摩90分钟", "0169", 1, 550}};
    const QList<js_item_struct> served = {{"精油SPA", "点钟", 398, 1, 398, "19:30", "21:30"},
                                          {"足疗", "加钟", 128, 2, 256, "19:30", "21:30"}};
    const QList<sell_sum_order_print_struct> sold = {{"鲜榨西瓜汁", 8, 224, false},
                                                     {"云南普洱熟茶七年陈(壶)", 4, 752, false},
                                                     {"=【饮品】=", 12, 976, true},
                                                     {"花生\r\n(斤)", 2.5, 66, false}};
    const QList<sell_sum_area_print_struct> areas = {{"二楼休息大厅", 14.5, 1042, sold}, {"按摩部", 0, 0, {}}};
    const sell_sum_print_struct report = {"2026-03-08 06:00:00", "2026-03-09 06:00:00", "1001", areas};
    const buffet_print_struct buffet = {
        "2026-03-08 18:30:00", "0168", "自助晚餐(成人)", 2, 88, "1001", "林晓梅"};
    const open_room_print_struct openRoom = {"208", 2, "豪华双人过夜", "0168", 12, 368, "1001", "林晓梅", now};
    const leave_room_print_struct leaveRoom = {
        "208",    "(听雨轩)", "2026-03-08 13:05:30", now,    "0168,0169", 12,
        "8时0分", 3,          "豪华双人过夜",        "1001", "",          ""};
    const js_server_print serviceEnd = {{massage, item("拔罐[赠送]", 2, 58.5, "8801")},
                                        "8801",
                                        "208",
                                        "0168",
                                        "2026-03-08 19:30:00",
                                        now,
                                        "2026-03-08 21:00:00",
                                        "1小时35分钟 5"};
    const PrintSettings wide = terminal();
    return {slip("order", PrintOrder, order("客人对花生过敏,小吃请分开装", "0168", "", "A12", "林晓梅", lines),
                 wide),
            slip("order-again", PrintOrderAgain, order("", "0168", "", "", "林晓梅", {juice}), wide),
            slip("transfer", PrintTransfer, transfer_print_struct{"0170", "1001", 664, moved}, wide),
            slip("technician-end", PrintTechnicianEnd, voucher(served, 5), wide),
            slip("sales-report", PrintSalesReport, report, wide),
            slip("buffet", PrintBuffet, buffet, wide),
            slip("open-room", PrintOpenRoom, openRoom, wide),
            slip("leave-room", PrintLeaveRoom, leaveRoom, wide),
            slip("service-end", PrintServiceEnd, serviceEnd, wide)};
}

QVector<SampleSlip> Samples::oddities()
{
    PrintSettings longName = terminal(false);
    longName.storeName = "云水间汤泉会馆云水间汤泉会馆云水间汤泉会馆店";
    PrintSettings latinName = terminal();
    latinName.storeName = "kv-house1";
    PrintSettings single = terminal(true, 2);
    single.isSinglePrint = true;

    consumer_print_struct tooLong = order("", "0168", "301", "A12", "林晓梅梅梅", manyLines);
    tooLong.area = "水吧";
    consumer_print_struct ofRoom;
    ofRoom.orderMode = 2;
    ofRoom.area = "按摩部";
    ofRoom.roomNo = "301";
    ofRoom.remark = "a一二三四五六七八九十一二三四五六七八九十终";
    consumer_print_struct three;
    three.area = "二楼休息大厅";
    three.items = {item("甲", 1, 1), item("乙", 2, 2), item("丙", 3, 3)};
    consumer_print_struct empty;
    empty.cardNo = "0168";
    js_server_print noService;
    noService.staffNo = "8801";
    const open_room_print_struct openRoom = {"301", 1, "按摩房", "", 1.5, 368, "1000000012", "林晓梅", now};
    const leave_room_print_struct leaveRoom = {"301",
                                               "",
                                               "2026-03-08 20:05:30",
                                               now,
                                               "0101,0102,0103,0104,0105,0106,0107",
                                               2,
                                               "1时0分",
                                               2,
                                               "豪华双人过夜",
                                               "1002",
                                               "",
                                               ""};
    const QList<sell_sum_order_print_struct> sold = {{"一二三四五六七八九十", -2, -20, false},
                                                     {"一二三四五六七\n八九十a", 1, 1, false},
                                                     {"一二三四五六七八九十甲", 1, 1, false},
                                                     {"一二三四五六七八九十甲b", 1, 1, false},
                                                     {"=【一二三四五六七八九十】=", 1234567, 1234567, true}};
    const sell_sum_print_struct report = {"", "", "", {{"水吧", 1, -17, sold}}};
    const QList<transfer_order_struct> moved = {{"一二三四五六七八", "0168", 1, 10},
                                                {"一二三四五六七八a", "0169", 1, 20},
                                                {"1234567890123456", "0170009", -2, 30},
                                                {"换\r\n行\n茶", "0168", 0.5, 5}};
    const QList<js_item_struct> late = {{"精油SPA", "点钟", 398, 0, 0, "19:30", "20:00"}};
    const QList<js_item_struct> onTime = {{"%2", "轮钟", 128, 1, 128, "19:30", "20:30"}};
    return {slip("order-lines", PrintOrder, tooLong, longName),
            slip("order-room", PrintOrder, ofRoom, latinName),
            slip("order-split", PrintOrder, three, single),
            slip("order-copies", PrintOrder, empty, terminal(false, 2)),
            slip("open-room-massage", PrintOpenRoom, openRoom),
            slip("leave-room-massage", PrintLeaveRoom, leaveRoom, terminal(false), 2),
            slip("service-end-empty", PrintServiceEnd, noService),
            slip("technician-end-late", PrintTechnicianEnd, voucher(late, -5, "8802")),
            slip("technician-end-on-time", PrintTechnicianEnd, voucher(onTime, 0)),
            slip("technician-end-empty", PrintTechnicianEnd, voucher({}, 5)),
            slip("sales-report-names", PrintSalesReport, report),
            slip("transfer-names", PrintTransfer, transfer_print_struct{"0171", "", -27.5, moved})};
}

void Samples::print(const SampleSlip& slip, const PosPrintDLL& library, const QString& printer)
{
    Clock::setSource([] { return QDateTime(QDate(2026, 3, 8), QTime(21, 5, 30)).toMSecsSinceEpoch(); });
    GlobalConfig::getInstance()->leave_room_print_count = slip.configuredCopies;
    GlobalConfig::getInstance()->stop_server_print_count = slip.configuredCopies;
    PrintSettings settings = slip.settings;
    settings.printerName = printer;
    PosPrint(library, true, settings).print(slip.kind, slip.record, {}, {});
    Clock::setSource(nullptr);
}
