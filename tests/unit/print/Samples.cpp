#include "Samples.h"

#include <QDateTime>

consumer_item_struct Samples::item(const char* name, double num, double price, const char* staffNo)
{
    consumer_item_struct item;
    item.itemName = QString::fromUtf8(name);
    item.num = num;
    item.price = price;
    item.amount = num * price;
    item.staffNo = QString::fromUtf8(staffNo);
    item.status = 1;
    return item;
}

consumer_print_struct Samples::order()
{
    consumer_print_struct record;
    record.area = QStringLiteral("二楼休息大厅");
    record.orderDate = QStringLiteral("2026-03-08 21:04:12");
    record.cardNo = QStringLiteral("0168");
    record.deskNo = QStringLiteral("A12");
    record.staffCode = QStringLiteral("1001");
    record.staffName = QStringLiteral("林晓梅");
    record.remark = QStringLiteral("客人对花生过敏,小吃请分开装");
    record.items = {item("鲜榨西瓜汁", 2, 28), item("精油SPA90分钟", 1, 398, "8801"),
                    item("毛尖茶[赠送]", 1, 48), item("现切果盘", -1, 68)};
    record.items[1].isJs = 1;
    record.items[1].serviceType = 1;
    record.items[1].pushNo = QStringLiteral("8805");
    record.items[3].status = 3;
    record.items[3].createTime = QStringLiteral("2026-03-08 20:15:00");
    record.items[3].authNo = QStringLiteral("1000");
    record.items[3].authName = QStringLiteral("陈店长");
    return record;
}

consumer_print_struct Samples::orderAgain()
{
    consumer_print_struct record = order();
    record.deskNo.clear();
    record.remark.clear();
    record.items = {item("鲜榨西瓜汁", 2, 28)};
    return record;
}

transfer_print_struct Samples::transfer()
{
    transfer_print_struct record;
    record.newCardNo = QStringLiteral("0170");
    record.staffCode = QStringLiteral("1001");
    record.amount = 664;
    record.orders = {{QStringLiteral("鲜榨西瓜汁"), QStringLiteral("0168"), 2, 28},
                     {QStringLiteral("搓澡"), QStringLiteral("0168"), 1, 58},
                     {QStringLiteral("至尊泰式古法按摩90分钟"), QStringLiteral("0169"), 1, 550}};
    return record;
}

end_server_print_struct Samples::technicianEnd()
{
    const QString start = QStringLiteral("19:30");
    const QString end = QStringLiteral("21:30");
    end_server_print_struct record;
    record.staffNo = QStringLiteral("8801");
    record.workNo = record.staffNo;
    record.roomNo = QStringLiteral("208");
    record.cardNo = QStringLiteral("0168");
    record.surplus = 5;
    record.items = {{QStringLiteral("精油SPA"), QStringLiteral("点钟"), 398, 1, 398, start, end},
                    {QStringLiteral("足疗"), QStringLiteral("加钟"), 128, 2, 256, start, end}};
    return record;
}

sell_sum_print_struct Samples::salesReport()
{
    sell_sum_area_print_struct lounge;
    lounge.areaName = QStringLiteral("二楼休息大厅");
    lounge.totalNum = 14.5;
    lounge.totalAmount = 1042;
    lounge.orders = {{QStringLiteral("鲜榨西瓜汁"), 8, 224, false},
                     {QStringLiteral("云南普洱熟茶七年陈(壶)"), 4, 752, false},
                     {QStringLiteral("=【饮品】="), 12, 976, true},
                     {QStringLiteral("花生\r\n(斤)"), 2.5, 66, false}};
    sell_sum_area_print_struct massage;
    massage.areaName = QStringLiteral("按摩部");
    sell_sum_print_struct record;
    record.startTime = QStringLiteral("2026-03-08 06:00:00");
    record.endTime = QStringLiteral("2026-03-09 06:00:00");
    record.staffCode = QStringLiteral("1001");
    record.areas = {lounge, massage};
    return record;
}

buffet_print_struct Samples::buffet()
{
    buffet_print_struct record;
    record.orderDate = QStringLiteral("2026-03-08 18:30:00");
    record.cardNo = QStringLiteral("0168");
    record.itemName = QStringLiteral("自助晚餐(成人)");
    record.num = 2;
    record.price = 88;
    record.staffCode = QStringLiteral("1001");
    record.staffName = QStringLiteral("林晓梅");
    return record;
}

open_room_print_struct Samples::openRoom()
{
    open_room_print_struct record;
    record.roomNo = QStringLiteral("208");
    record.openType = 2;
    record.planName = QStringLiteral("豪华双人过夜");
    record.mainCard = QStringLiteral("0168");
    record.hours = 12;
    record.fee = 368;
    record.staffCode = QStringLiteral("1001");
    record.staffName = QStringLiteral("林晓梅");
    record.openTime = QStringLiteral("2026-03-08 21:05:30");
    return record;
}

leave_room_print_struct Samples::leaveRoom()
{
    leave_room_print_struct record;
    record.roomNo = QStringLiteral("208");
    record.roomName = QStringLiteral("(听雨轩)");
    record.startTime = QStringLiteral("2026-03-08 13:05:30");
    record.leaveTime = QStringLiteral("2026-03-08 21:05:30");
    record.cards = QStringLiteral("0168,0169");
    record.hours = 12;
    record.useTime = QStringLiteral("8时0分");
    record.status = 3;
    record.planName = QStringLiteral("豪华双人过夜");
    record.staffCode = QStringLiteral("1001");
    return record;
}

js_server_print Samples::serviceEnd()
{
    js_server_print record;
    record.items = {item("精油SPA90分钟", 1, 398, "8801"), item("拔罐[赠送]", 2, 58.5, "8801")};
    record.staffNo = QStringLiteral("8801");
    record.seatNo = QStringLiteral("208");
    record.cardNo = QStringLiteral("0168");
    record.startTime = QStringLiteral("2026-03-08 19:30:00");
    record.dueTime = QStringLiteral("2026-03-08 21:00:00");
    record.realTime = QStringLiteral("2026-03-08 21:05:30");
    record.serviceTime = QStringLiteral("1小时35分钟 5");
    return record;
}

QVector<Samples::Slip> Samples::all()
{
    return {{"order", PrintOrder, QVariant::fromValue(order())},
            {"order-again", PrintOrderAgain, QVariant::fromValue(orderAgain())},
            {"transfer", PrintTransfer, QVariant::fromValue(transfer())},
            {"technician-end", PrintTechnicianEnd, QVariant::fromValue(technicianEnd())},
            {"sales-report", PrintSalesReport, QVariant::fromValue(salesReport())},
            {"buffet", PrintBuffet, QVariant::fromValue(buffet())},
            {"open-room", PrintOpenRoom, QVariant::fromValue(openRoom())},
            {"leave-room", PrintLeaveRoom, QVariant::fromValue(leaveRoom())},
            {"service-end", PrintServiceEnd, QVariant::fromValue(serviceEnd())}};
}

qint64 Samples::printedAtMs() { return QDateTime(QDate(2026, 3, 8), QTime(21, 5, 30)).toMSecsSinceEpoch(); }
