// What the tiles of the room board and the lines of a room's consumption say, and how the board's lists take a
// refresh.

#include "common/GlobalConfig.h"
#include "serialization/QJsonSerializer.h"
#include "vm/module1/BoardModels.h"
#include "vm/module1/RoomConsumeVm.h"
#include "vm/module1/RoomListModel.h"

#include <QSignalSpy>
#include <QtTest>

namespace {

template <typename Record>
void fill(Record* record, const QJsonObject& fields)
{
    QJsonSerializer().deserializeObject(fields, record, &Record::staticMetaObject);
}

QJsonObject room(const QString& number, int status = 1)
{
    return {{"id", "id-" + number}, {"code", number}, {"status", status}};
}

void update(RoomListModel* model, const QJsonArray& rooms)
{
    GetRoomListDto reply;
    fill(&reply, {{"data", rooms}});
    model->update(reply.data());
}

QVariant role(const QAbstractItemModel& model, int row, const char* name)
{
    return model.data(model.index(row, 0), model.roleNames().key(name));
}

QStringList roleOfAll(const QAbstractItemModel& model, const char* name)
{
    QStringList values;
    for (int row = 0; row < model.rowCount(); ++row)
        values.append(role(model, row, name).toString());
    return values;
}

void compare(const QAbstractItemModel& model, int row, const QVariantMap& shown)
{
    QVariantMap found;
    for (const QString& name : shown.keys())
        found.insert(name, role(model, row, name.toLatin1()));
    QCOMPARE(found, shown);
}

} // namespace

class tst_room_tiles : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void tile_data();
    void tile();
    void refreshInPlace();
    void groups();
    void filterMarks();
    void overruns();
    void consumption_data();
    void consumption();
};

void tst_room_tiles::init()
{
    auto* terminal = new TerminalDto;
    terminal->set_isShowAmount(true);
    GlobalConfig::getInstance()->setTerminalInfo(terminal);
}

void tst_room_tiles::tile_data()
{
    QTest::addColumn<QJsonObject>("fields");
    QTest::addColumn<QVariantMap>("shown");
    const auto row = [](const char* name, const QJsonObject& fields, const QVariantMap& shown) {
        QTest::newRow(name) << fields << shown;
    };

    row("colour of 1", {{"status", 1}}, {{"backColor", "#08A0D3"}});
    row("colour of 2", {{"status", 2}}, {{"backColor", "#DB70D7"}});
    row("colour of 2, settled", {{"status", 2}, {"isSettle", true}}, {{"backColor", "#B2B10A"}});
    row("colour of 3", {{"status", 3}}, {{"backColor", "#DB70D7"}});
    row("colour of 3, settled", {{"status", 3}, {"isSettle", true}}, {{"backColor", "#B2B10A"}});
    row("colour of 4", {{"status", 4}, {"isSettle", true}}, {{"backColor", "#409914"}});
    row("colour of 5", {{"status", 5}}, {{"backColor", "#CD3333"}});
    row("colour of 5, dirty", {{"status", 5}, {"dirtyFlg", true}}, {{"backColor", "#409914"}});
    row("colour of 6", {{"status", 6}, {"openType", 2}}, {{"backColor", "#DB70D7"}});
    row("colour of 6, dirty", {{"status", 6}, {"openType", 2}, {"dirtyFlg", true}}, {{"backColor", "#AC9273"}});
    row("colour of 6, dirty, no guest room", {{"status", 6}, {"openType", 1}, {"dirtyFlg", true}},
        {{"backColor", "#DB70D7"}});
    row("colour of 7", {{"status", 7}}, {{"backColor", "#DB70D7"}});
    row("colour of 8", {{"status", 8}}, {{"backColor", "#E51C23"}});
    row("colour of 9", {{"status", 9}}, {{"backColor", "#000000"}});

    row("name that repeats the number", {{"code", "801"}, {"name", "801"}},
        {{"roomNo", "801"}, {"roomName", ""}});
    row("name of its own", {{"code", "801"}, {"name", "听泉"}, {"floorname", "三楼"}, {"num", 2}, {"innum", 4}},
        {{"roomName", "听泉"}, {"roomFloor", "三楼"}, {"roomNum", "2/4"}});

    row("state: empty", {{"status", 1}, {"statusStr", "空闲房"}}, {{"statusVal", "空闲房"}});
    row("state: reserved", {{"status", 1}, {"statusStr", "空闲房"}, {"roomLock", true}},
        {{"statusVal", "预约"}});
    row("state: to clean", {{"status", 4}, {"statusStr", "清扫房"}}, {{"statusVal", "清扫房"}});
    row("state: cleaning begun", {{"status", 4}, {"statusStr", "清扫房"}, {"cleanFlg", 1}},
        {{"statusVal", "开始清扫"}});
    row("state: cleaned", {{"status", 4}, {"statusStr", "清扫房"}, {"cleanFlg", 2}},
        {{"statusVal", "清扫完成"}});
    row("state: cleaned by", {{"status", 4}, {"cleanFlg", 2}, {"cleanerNo", "901"}, {"cleanerName", "余小宝"}},
        {{"statusVal", "余小宝-901"}, {"roomCleaner", "901-余小宝"}});
    row("state: occupied", {{"status", 5}, {"cooName", "设备维修"}}, {{"statusVal", "设备维修"}});
    row("state: occupied and dirty",
        {{"status", 5},
         {"cooName", "设备维修"},
         {"dirtyFlg", true},
         {"cleanerNo", "901"},
         {"cleanerName", "余小宝"}},
        {{"statusVal", "清扫"}, {"roomCleaner", "901-余小宝"}});
    row("state: in use and dirty",
        {{"status", 2},
         {"statusStr", "按摩房"},
         {"dirtyFlg", true},
         {"cleanerNo", "901"},
         {"cleanerName", "余小宝"}},
        {{"statusVal", "余小宝-901"}, {"roomCleaner", "901-余小宝"}});
    row("state: in use", {{"status", 2}, {"statusStr", "按摩房"}, {"cleanerNo", "901"}},
        {{"statusVal", ""}, {"roomCleaner", ""}});

    const QJsonObject inside{{"cardnos", "8001,8002"},
                             {"staffnos", "801"},
                             {"completedStaffnos", "802"},
                             {"groupRoom", "105,106"},
                             {"lastSvrTime", "末次下钟 22:15"},
                             {"hours", 2},
                             {"surplus", 55},
                             {"needPayAmount", 298.5}};
    const QVariantMap nothing{{"cardList", ""}, {"staffList", ""}, {"finishStaff", ""}, {"groupRoom", ""},
                              {"usedTime", ""}, {"leftTime", ""},  {"lastSvrTime", ""}, {"payAmount", ""}};
    for (int status = 1; status <= 9; ++status) {
        QJsonObject fields = inside;
        fields["status"] = status;
        QVariantMap shown = nothing;
        if (status == 2 || status == 3 || status >= 7) {
            shown["cardList"] = "客:8001,8002";
            shown["staffList"] = "技:801";
            shown["finishStaff"] = "停:802";
            shown["groupRoom"] = "团:105,106";
            shown["usedTime"] = "1:5";
            shown["leftTime"] = "0:55";
        }
        if (status == 2)
            shown["lastSvrTime"] = "末次下钟 22:15";
        if (status == 2 || status == 3)
            shown["payAmount"] = "¥298.5";
        QTest::addRow("inside a room of status %d", status) << fields << shown;
    }
    row("nobody inside yet", {{"status", 2}},
        {{"cardList", ""}, {"staffList", ""}, {"finishStaff", ""}, {"groupRoom", ""}, {"payAmount", ""}});
    row("a large amount", {{"status", 3}, {"needPayAmount", 1234567.25}}, {{"payAmount", "¥1234567.25"}});
    row("a negative amount", {{"status", 3}, {"needPayAmount", -1}}, {{"payAmount", ""}});

    const std::pair<int, const char*> lefts[] = {{0, "0:0"},       {59, "0:59"},      {65, "1:5"},
                                                 {-1, "超:>0:1"},  {-83, "超:>1:23"}, {-2879, "超:>47:59"},
                                                 {-2880, "超:1d"}, {-100000, "超:1d"}};
    for (const auto& [minutes, text] : lefts) {
        QTest::addRow("%d minutes left", minutes)
            << QJsonObject{{"status", 3}, {"hours", 1}, {"surplus", minutes}}
            << QVariantMap{{"leftTime", text}};
    }
}

void tst_room_tiles::tile()
{
    QFETCH(QJsonObject, fields);
    QFETCH(QVariantMap, shown);
    RoomListModel model;
    update(&model, {fields});
    compare(model, 0, shown);
    GlobalConfig::getInstance()->terminalInfo()->set_isShowAmount(false);
    update(&model, {fields});
    QCOMPARE(role(model, 0, "payAmount").toString(), QString());
}

void tst_room_tiles::refreshInPlace()
{
    RoomListModel model;
    update(&model, {room("801"), room("802"), room("803")});
    QSignalSpy resets(&model, &QAbstractItemModel::modelReset);
    QSignalSpy changes(&model, &QAbstractItemModel::dataChanged);
    // Another order, and other rooms: what counts is the place.
    update(&model, {room("803", 2), room("801"), room("809")});
    QCOMPARE(roleOfAll(model, "roomNo"), (QStringList{"803", "801", "809"}));
    QCOMPARE(roleOfAll(model, "roomId"), (QStringList{"id-803", "id-801", "id-809"}));
    QCOMPARE(roleOfAll(model, "status"), (QStringList{"2", "1", "1"}));
    // Nothing new is told to nobody.
    update(&model, {room("803", 2), room("801"), room("809")});
    QCOMPARE(changes.size(), 1);
    QCOMPARE(resets.size(), 0);
}

void tst_room_tiles::groups()
{
    RoomSortListModel model;
    const auto load = [&](const QJsonArray& types) {
        GetRoomSortDto reply;
        fill(&reply, {{"data", types}});
        model.update(reply.data());
    };
    const auto type = [](const QString& name, const QJsonArray& rooms) {
        return QJsonObject{{"name", name}, {"roomList", rooms}};
    };
    load({type("双人间", {room("801"), room("802")}), type("套房", {room("901")})});
    QSignalSpy resets(&model, &QAbstractItemModel::modelReset);
    auto* first = role(model, 0, "roomList").value<RoomListModel*>();
    QSignalSpy nestedResets(first, &QAbstractItemModel::modelReset);

    load({type("大双人间", {room("801", 2), room("802")}), type("套房", {room("901"), room("902")})});
    QCOMPARE(roleOfAll(model, "typeName"), (QStringList{"大双人间", "套房"}));
    QCOMPARE(role(model, 0, "roomList").value<RoomListModel*>(), first);
    QCOMPARE(roleOfAll(*first, "status"), (QStringList{"2", "1"}));
    QCOMPARE(nestedResets.size(), 0);
    QCOMPARE(resets.size(), 0);

    load({type("套房", {room("901")})});
    QCOMPARE(resets.size(), 1);
    QCOMPARE(roleOfAll(model, "typeName"), QStringList{"套房"});
}

void tst_room_tiles::filterMarks()
{
    RoomTypeModel model;
    const auto load = [&](const QStringList& ids) {
        QJsonArray list;
        for (const QString& id : ids)
            list.append(QJsonObject{{"id", id}, {"name", "n" + id}, {"roomUseSum", 1}, {"roomAllSum", 8}});
        RoomTypeListDto types;
        fill(&types, {{"roomTypeList", list}});
        model.upate(types.roomTypeList());
    };
    load({"a", "b", "c"});
    model.toggle("b");
    model.toggle("c");
    model.toggle("unknown");
    QCOMPARE(model.checkedIds(), (QStringList{"b", "c"}));
    // Other places, one gone, one new: the marks go with the ids.
    load({"c", "d", "b", "a"});
    QCOMPARE(model.checkedIds(), (QStringList{"c", "b"}));
    load({"a", "c"});
    QCOMPARE(model.checkedIds(), QStringList{"c"});
    model.toggle("c");
    QCOMPARE(model.checkedIds(), QStringList());
    QCOMPARE(roleOfAll(model, "typeId"), (QStringList{"a", "c"}));
    QCOMPARE(roleOfAll(model, "typeName"), (QStringList{"na", "nc"}));
    QCOMPARE(role(model, 0, "num").toString(), QStringLiteral("1/8"));
}

void tst_room_tiles::overruns()
{
    RoomOverTimeModel model;
    GetOverTimeDto reply;
    fill(&reply, {{"data", QJsonArray{QJsonObject{{"code", "801"}, {"overtimes", 135}},
                                      QJsonObject{{"code", "802"}, {"overtimes", 9}}}}});
    model.upate(reply.data());
    QCOMPARE(roleOfAll(model, "roomNo"), (QStringList{"801", "802"}));
    QCOMPARE(roleOfAll(model, "overDesc"), (QStringList{"超2时15分", "超0时9分"}));
}

void tst_room_tiles::consumption_data()
{
    QTest::addColumn<QJsonObject>("line");
    QTest::addColumn<QVariantMap>("shown");
    const auto row = [](const char* name, const QJsonObject& line, const QVariantMap& shown) {
        QTest::newRow(name) << line << shown;
    };
    row("moved from another card", {{"cardNo", "8001"}, {"srcOldCardNo", "8002"}},
        {{"cardNo", "8001[转]"}, {"backColor", "#EAE9EA"}});
    row("its own",
        {{"cardNo", "8001"}, {"itemName", "足疗"}, {"num", 1.5}, {"staffNo", "801"}, {"pushNo", "802"}},
        {{"cardNo", "8001"},
         {"backColor", "#FFFFFF"},
         {"itemName", "足疗"},
         {"num", 1.5},
         {"staffNo", "801"},
         {"pushNo", "802"}});
    row("prices", {{"price", 128}, {"amount", -0.5}}, {{"price", "128"}, {"amount", "-0.5"}});
    row("other prices", {{"price", 28.8}, {"amount", 1234567.89}},
        {{"price", "28.8"}, {"amount", "1234567.89"}});
    row("not finished", {{"cmtFlg", 0}, {"createtime", "03:04:05"}},
        {{"statusVal", "[未完成]"}, {"createTime", "03:04:05"}});
    row("finished", {{"cmtFlg", 1}}, {{"statusVal", ""}});
    row("finished otherwise", {{"cmtFlg", 2}}, {{"statusVal", ""}});
}

void tst_room_tiles::consumption()
{
    QFETCH(QJsonObject, line);
    RoomConsumeModel model;
    GetRoomConsList reply;
    fill(&reply, {{"data", QJsonArray{QJsonObject{{"cardNo", "8009"}}, line}}});
    model.update(reply.data());
    QFETCH(QVariantMap, shown);
    compare(model, 1, shown);
}

QTEST_GUILESS_MAIN(tst_room_tiles)
#include "tst_room_tiles.moc"
