// Rooms that are joined into a group; and what all pages that change who is in a room have to bear.

#include "RoomFixture.h"

#include "common/GlobalConfig.h"
#include "dto/room/RoomRecords.h"
#include "vm/module1/MergeRoomVm.h"
#include "vm/module1/RoomCardVms.h"

#include <QAbstractItemModelTester>
#include <QTimer>
#include <QtTest>

namespace {

const QString addPath = QStringLiteral("/bba01/roomAddCard");
const QString splitPath = QStringLiteral("/bba01/unpackRoom");
const QString leavePath = QStringLiteral("/bba01/leaveRoomNew");
const QString mergePath = QStringLiteral("/bba01/mergeRoom");
const QString cardPath = QStringLiteral("/baa01/getHardCardDetail");
const QString roomsPath = QStringLiteral("/bba01/getRoomList");
const QString candidatesPath = QStringLiteral("/bba01/getCanMergeRoomList");
const QString done = QStringLiteral("success|操作成功");

QStringList namesOf(const TempDataModel* rooms)
{
    QStringList names;
    for (const temp_struct& room : rooms->getAll())
        names.append(room.tempId + "=" + room.tempName);
    return names;
}

} // namespace

class tst_room_groups : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init() { m_room->reset(); }
    void cleanup() { GlobalConfig::getInstance()->leave_room_print_count = 0; }
    void mergeGroups();
    void merging();
    void mergedRooms();
    void noRecord();
    void oneAtATime_data();
    void oneAtATime();
    void closedDuringItsCall_data();
    void closedDuringItsCall();
    void listsThatComeTooLate();

private:
    Reply<GetRoomDetailNew> room(const QStringList& cardNos, int status = 2)
    {
        return m_room->madeUpDetail({{"id", "R1"}, {"roomNo", "101"}, {"status", status}}, cardNos);
    }
    void actionRows();
    QObject* prepared(const QString& action, std::function<bool()>* save, QString* path);

    std::unique_ptr<RoomFixture> m_room;
};

void tst_room_groups::initTestCase()
{
    m_room.reset(new RoomFixture);
    QVERIFY(m_room->isUp());
}

void tst_room_groups::mergeGroups()
{
    const auto candidate = [](const QString& no, const QString& key) {
        return QJsonObject{{"roomId", "id" + no},    {"roomNo", no},    {"floorName", "一楼"},
                           {"hourseName", "双人间"}, {"groupKey", key}, {"status", 2}};
    };
    m_room->answer(candidatesPath,
                   QJsonArray{candidate("1", "K2"), candidate("2", ""), candidate("3", "K1"),
                              candidate("4", "K2"), candidate("5", "")},
                   1);
    MergeRoomVm page;
    const QAbstractItemModelTester tester(page.pRoomModel());
    QSignalSpy resets(page.pRoomModel(), &QAbstractItemModel::modelReset);
    QVERIFY(page.init("R1", "101"));
    QCOMPARE(m_room->sent(candidatesPath), (QJsonObject{{"roomNo", "101"}, {"schRoomNo", ""}}));
    QCOMPARE(resets.size(), 1 + 3);
    const auto groups = [&] {
        QStringList texts;
        for (int i = 0; i < page.pRoomModel()->rowCount(); ++i) {
            const auto value = [&](const QByteArray& role) {
                return page.pRoomModel()->data(page.pRoomModel()->index(i),
                                               page.pRoomModel()->roleNames().key(role));
            };
            texts.append(value("name").toString() + "|" + value("key").toString() + "|" +
                         namesOf(value("roomModel").value<TempDataModel*>()).join(' '));
        }
        return texts;
    };
    QCOMPARE(groups(),
             (QStringList{"单独房间||id2=一楼 双人间 2 id5=一楼 双人间 5", "团[K1]|K1|id3=一楼 双人间 3",
                          "团[K2]|K2|id1=一楼 双人间 1 id4=一楼 双人间 4"}));

    m_room->refuse(candidatesPath, QStringLiteral("查询失败"), 1);
    QVERIFY(!page.getRoomList("9"));
    QCOMPARE(m_room->takeShown(), QStringList{"error|查询失败"});
    QCOMPARE(groups().size(), 3);

    m_room->answer(candidatesPath, QJsonArray{candidate("9", "K1")}, 1);
    QVERIFY(page.getRoomList("9"));
    QCOMPARE(m_room->sent(candidatesPath), (QJsonObject{{"roomNo", "101"}, {"schRoomNo", "9"}}));
    QCOMPARE(groups(), QStringList{"团[K1]|K1|id9=一楼 双人间 9"}); // no single rooms, no group of them
    m_room->answer(candidatesPath, QJsonArray{}, 1);
    page.getRoomList("99");
    QCOMPARE(groups(), QStringList{});
}

void tst_room_groups::merging()
{
    m_room->answer(candidatesPath, QJsonArray{QJsonObject{{"roomId", "A"}, {"groupKey", "K"}},
                                              QJsonObject{{"roomId", "B"}, {"groupKey", "K"}},
                                              QJsonObject{{"roomId", "C"}, {"groupKey", ""}}});
    MergeRoomVm page;
    QVERIFY(page.init("R1", "101"));
    const auto enabled = noteEnabled(&page);
    QVERIFY(!page.save());
    QCOMPARE(m_room->takeShown(), QStringList{"error|请选择需要合并的房间"});
    QCOMPARE(m_room->house().seen(mergePath), 0);
    QVERIFY(page.isEnabled());
    enabled->clear();

    page.pRoomModel()->getAll().at(1)->selectRoom(1); // B, and not the rest of its group
    page.pRoomModel()->getAll().at(1)->selectRoom(2); // no such room
    m_room->refuse(mergePath, QStringLiteral("房间已结账"), 1);
    QVERIFY(!page.save());
    QCOMPARE(m_room->sent(mergePath), (QJsonObject{{"roomIdArr", QJsonArray{"B", "R1"}}}));
    page.pRoomModel()->getAll().at(0)->pRoomModel()->onSelected(0);
    m_room->answer(mergePath, {}, 1);
    QVERIFY(page.save());
    QCOMPARE(m_room->sent(mergePath), (QJsonObject{{"roomIdArr", QJsonArray{"C", "B", "R1"}}}));
    QCOMPARE(m_room->takeShown(), (QStringList{"error|房间已结账", done}));
    QCOMPARE(*enabled, busyOnce() + busyOnce());
}

void tst_room_groups::mergedRooms()
{
    const QString one = RoomFloor::openRoom(2, 1);
    const QString other = RoomFloor::openRoom(2, 1);
    MergeRoomVm page;
    QVERIFY(page.init(RoomFloor::roomId(one), one));
    QVERIFY(page.getRoomList(other));
    QCOMPARE(page.pRoomModel()->rowCount(), 1);
    QCOMPARE(page.pRoomModel()->getAll().at(0)->name(), QStringLiteral("单独房间"));
    page.pRoomModel()->getAll().at(0)->selectRoom(0);
    QVERIFY(page.save());
    const auto merged = RoomFloor::detail(one);
    QVERIFY(!merged->data()->group_key().isEmpty());
    QCOMPARE(merged->data()->group_key(), RoomFloor::detail(other)->data()->group_key());
}

void tst_room_groups::noRecord()
{
    // The dialog has none when the room's state has changed before it opened.
    RoomAddCardsVm add;
    QVERIFY(!add.init("101", nullptr));
    LeaveRoomVm leave;
    QVERIFY(!leave.init(nullptr));
    RoomCardSplitVm split;
    split.init(nullptr);
    QCOMPARE(m_room->house().seen(roomsPath), 0);
}

void tst_room_groups::actionRows()
{
    QTest::addColumn<QString>("action");
    for (const char* action : {"add", "split", "leave", "merge"})
        QTest::newRow(action) << QString::fromLatin1(action);
}

/// A page that can save at once.
QObject* tst_room_groups::prepared(const QString& action, std::function<bool()>* save, QString* path)
{
    if (action == "add") {
        auto* page = new RoomAddCardsVm;
        page->init("101", room({})->data());
        m_room->answer(cardPath, QJsonObject{{"id", "id-8002"}, {"cardno", "8002"}});
        page->getCardInfo("8002", {});
        *save = [page] { return page->save(); };
        *path = addPath;
        return page;
    }
    if (action == "split") {
        auto* page = new RoomCardSplitVm;
        m_room->answer(roomsPath, QJsonArray{QJsonObject{{"code", "201"}, {"status", 1}}});
        page->init(room({"8001"})->data());
        page->selectRoom(0);
        page->selectCard(0);
        *save = [page] { return page->save(); };
        *path = splitPath;
        return page;
    }
    if (action == "leave") {
        auto* page = new LeaveRoomVm;
        page->init(room({"8001"})->data());
        *save = [page] { return page->save(); };
        *path = leavePath;
        return page;
    }
    auto* page = new MergeRoomVm;
    m_room->answer(candidatesPath, QJsonArray{QJsonObject{{"roomId", "A"}}});
    page->init("R1", "101");
    page->pRoomModel()->getAll().at(0)->selectRoom(0);
    *save = [page] { return page->save(); };
    *path = mergePath;
    return page;
}

void tst_room_groups::oneAtATime_data() { actionRows(); }

void tst_room_groups::oneAtATime()
{
    QFETCH(QString, action);
    std::function<bool()> save;
    QString path;
    const std::unique_ptr<QObject> page(prepared(action, &save, &path));
    m_room->answer(path, QJsonObject{{"flg", true}, {"allleave", false}});
    m_room->house().fault(path, "delay", 300, 1);
    bool wasEnabled = true;
    bool second = true;
    QTimer::singleShot(50, page.get(), [&] {
        wasEnabled = page->property("isEnabled").toBool();
        second = save();
    });
    QVERIFY(save());
    QVERIFY(!wasEnabled && !second);
    QCOMPARE(m_room->house().seen(path), 1);
    QVERIFY(page->property("isEnabled").toBool());
}

void tst_room_groups::closedDuringItsCall_data() { actionRows(); }

void tst_room_groups::closedDuringItsCall()
{
    QFETCH(QString, action);
    std::function<bool()> save;
    QString path;
    QPointer<QObject> page(prepared(action, &save, &path));
    m_room->answer(path, QJsonObject{{"flg", true}, {"allleave", true}});
    GlobalConfig::getInstance()->leave_room_print_count = 1;
    m_room->house().fault(path, "delay", 200, 1);
    QTimer::singleShot(50, page, [&] { delete page; });
    QVERIFY(save()); // what was asked for is done all the same
    QVERIFY(!page);
    if (action == "leave")
        QVERIFY(m_room->takePrinted().contains(QStringLiteral("开房手牌:8001")));
}

void tst_room_groups::listsThatComeTooLate()
{
    const QString inUse = RoomFloor::roomNoWhere([](const RoomDto& room) { return room.status() == 2; });
    m_room->house().fault(roomsPath, "delay", 200, 1);
    m_room->house().fault(candidatesPath, "delay", 200, 1);
    QPointer<RoomCardSplitVm> split(new RoomCardSplitVm);
    QTimer::singleShot(50, split, [&] { delete split; });
    split->getRoomInfo({});
    QPointer<MergeRoomVm> merge(new MergeRoomVm);
    QTimer::singleShot(50, merge, [&] { delete merge; });
    QVERIFY(!merge->init("R1", inUse));
    QVERIFY(!split && !merge);
}

QTEST_GUILESS_MAIN(tst_room_groups)
#include "tst_room_groups.moc"
