// The small pages of a room: what was consumed, the remark, and calling services to it.

#include "RoomFixture.h"

#include "vm/module1/RoomCallVm.h"
#include "vm/module1/RoomChangeVms.h"
#include "vm/module1/RoomConsumeVm.h"

#include <QAbstractItemModelTester>
#include <QTimer>
#include <QtTest>

namespace {

const QString linesPath = QStringLiteral("/bba01/getRoomConsList");
const QString remarkPath = QStringLiteral("/bba01/setRemark");
const QString callPath = QStringLiteral("/caa04/callStaff");
const QString done = QStringLiteral("success|操作成功");

QVariant cell(const QAbstractItemModel* model, int row, const QByteArray& role)
{
    return model->data(model->index(row, 0), model->roleNames().key(role));
}

} // namespace

class tst_room_pages : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init() { m_room->reset(); }

    void consumption_data();
    void consumption();
    void consumptionRefused();
    void consumptionOfTheHouse();
    void remark_data();
    void remark();
    void remarkOfTheHouse();
    void quantities();
    void calls_data();
    void calls();
    void noRecord();
    void oneAtATime();
    void pageClosedDuringItsCall();

private:
    Reply<GetRoomDetailNew> roomWithServices(int count);

    std::unique_ptr<RoomFixture> m_room;
    QString m_roomNo; ///< a massage room with one guest
};

void tst_room_pages::initTestCase()
{
    m_room.reset(new RoomFixture);
    QVERIFY(m_room->isUp());
    m_roomNo = RoomFloor::openRoom(2, 1);
    QVERIFY(!m_roomNo.isEmpty());
}

Reply<GetRoomDetailNew> tst_room_pages::roomWithServices(int count)
{
    QJsonArray services;
    for (int i = 1; i <= count; ++i)
        services.append(QJsonObject{{"contId", QString("c%1").arg(i)}, {"contName", QString("服务%1").arg(i)}});
    return m_room->madeUpDetail({{"id", "R1"}, {"remark", "旧的"}, {"status", 2}, {"calllist", services}}, {});
}

void tst_room_pages::consumption_data()
{
    QTest::addColumn<QJsonObject>("line");
    QTest::addColumn<QByteArray>("role");
    QTest::addColumn<QVariant>("shown");
    const auto row = [](const char* name, const char* field, const QJsonValue& value, const char* role,
                        const QVariant& shown) {
        QTest::newRow(name) << QJsonObject{{"cardNo", "8001"}, {"cmtFlg", 1}, {field, value}}
                            << QByteArray(role) << shown;
    };
    row("own card", "srcOldCardNo", "", "cardNo", "8001");
    row("moved card", "srcOldCardNo", "8002", "cardNo", "8001[转]");
    row("own colour", "srcOldCardNo", "", "backColor", "#FFFFFF");
    row("moved colour", "srcOldCardNo", "8002", "backColor", "#EAE9EA");
    row("item", "itemName", "足疗60分钟", "itemName", "足疗60分钟");
    row("quantity", "num", 1.5, "num", 1.5);
    row("whole price", "price", 128, "price", "128");
    row("price", "price", 28.8, "price", "28.8");
    row("long price", "price", 1234567.89, "price", "1234567.89");
    row("amount", "amount", -0.5, "amount", "-0.5");
    row("credited", "staffNo", "801", "staffNo", "801");
    row("pushed", "pushNo", "802", "pushNo", "802");
    row("entered", "createtime", "2026-01-02 03:04:05", "createTime", "2026-01-02 03:04:05");
    row("not finished", "cmtFlg", 0, "statusVal", "[未完成]");
    row("finished", "cmtFlg", 1, "statusVal", "");
    row("finished otherwise", "cmtFlg", 2, "statusVal", "");
}

void tst_room_pages::consumption()
{
    QFETCH(QJsonObject, line);
    QFETCH(QByteArray, role);
    m_room->answer(linesPath, QJsonArray{QJsonObject{{"cardNo", "8009"}}, line});
    RoomConsumeVm page;
    const QAbstractItemModelTester tester(page.pRoomConsumeModel());
    page.init("R1");
    QCOMPARE(m_room->sent(linesPath), (QJsonObject{{"roomId", "R1"}}));
    QCOMPARE(page.pRoomConsumeModel()->rowCount(), 2);
    QTEST(cell(page.pRoomConsumeModel(), 1, role), "shown");
}

void tst_room_pages::consumptionRefused()
{
    RoomConsumeVm page;
    m_room->answer(linesPath, QJsonArray{QJsonObject{{"cardNo", "8009"}}}, 1);
    page.init("R1");
    m_room->refuse(linesPath, QStringLiteral("房间不存在"));
    page.init("R1");
    QCOMPARE(m_room->takeShown(), QStringList{"error|房间不存在"});
    QCOMPARE(page.pRoomConsumeModel()->rowCount(), 1);
}

void tst_room_pages::consumptionOfTheHouse()
{
    RoomConsumeVm page;
    const QString roomNo = RoomFloor::openRoom(3, 1); // the plan's fee is its first line
    page.init(RoomFloor::roomId(roomNo));
    QCOMPARE(m_room->takeShown(), QStringList{});
    QVERIFY(page.pRoomConsumeModel()->rowCount() > 0);
    QVERIFY(!cell(page.pRoomConsumeModel(), 0, "itemName").toString().isEmpty());
}

void tst_room_pages::remark_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("refusal");
    QTest::newRow("text") << "客人要热水\n少冰"
                          << "";
    QTest::newRow("cleared") << ""
                             << "";
    QTest::newRow("refused") << "新的"
                             << "备注过长";
}

void tst_room_pages::remark()
{
    QFETCH(QString, text);
    QFETCH(QString, refusal);
    RoomRemarkVm page;
    page.init(roomWithServices(0)->data());
    QCOMPARE(page.roomId() + page.remark(), QStringLiteral("R1旧的"));
    page.setRemark(text);
    const auto enabled = noteEnabled(&page);
    if (refusal.isEmpty())
        m_room->answer(remarkPath, {});
    else
        m_room->refuse(remarkPath, refusal);
    QCOMPARE(page.save(), refusal.isEmpty());
    QCOMPARE(m_room->sent(remarkPath), (QJsonObject{{"id", "R1"}, {"remark", text}}));
    QCOMPARE(m_room->takeShown(), QStringList{refusal.isEmpty() ? done : "error|" + refusal});
    QCOMPARE(*enabled, busyOnce());
    QCOMPARE(page.remark(), text);
}

void tst_room_pages::remarkOfTheHouse()
{
    for (const char* text : {"靠窗, 安静", ""}) {
        RoomRemarkVm page;
        page.init(RoomFloor::detail(m_roomNo)->data());
        page.setRemark(QString::fromUtf8(text));
        QVERIFY(page.save());
        QCOMPARE(RoomFloor::detail(m_roomNo)->data()->remark(), QString::fromUtf8(text));
    }
}

void tst_room_pages::quantities()
{
    RoomCallVm page;
    const QAbstractItemModelTester tester(page.pRoomCallModel());
    page.init(roomWithServices(2)->data());
    RoomCallModel* services = page.pRoomCallModel();
    const auto shown = [&] {
        QStringList rows;
        for (int row = 0; row < services->rowCount(); ++row) {
            rows.append(cell(services, row, "callId").toString() + cell(services, row, "callName").toString() +
                        cell(services, row, "num").toString());
        }
        return rows.join(' ');
    };
    QCOMPARE(shown(), QStringLiteral("c1服务10 c2服务20"));
    services->sub(0);
    QCOMPARE(shown(), QStringLiteral("c1服务10 c2服务20"));
    services->add(1);
    services->add(1);
    services->add(1);
    services->sub(1);
    for (const int outside : {-1, 2}) {
        services->add(outside);
        services->sub(outside);
        services->setNum(outside, 5);
    }
    QCOMPARE(shown(), QStringLiteral("c1服务10 c2服务22"));
}

void tst_room_pages::calls_data()
{
    QTest::addColumn<QVector<int>>("wanted");
    QTest::addColumn<int>("unknown"); // index of a service that the house doesn't know, -1: none
    QTest::addColumn<QStringList>("shown");
    QTest::addColumn<QVector<int>>("called"); // indexes
    QTest::addColumn<QVector<int>>("left");
    using Numbers = QVector<int>;
    const QStringList refusal{"error|呼叫内容不存在"};
    QTest::newRow("none") << Numbers{0, 0, 0} << -1 << QStringList{"error|请输入需要呼叫的数量"} << Numbers{}
                          << Numbers{0, 0, 0};
    QTest::newRow("all") << Numbers{1, 2, 3} << -1 << QStringList{done} << Numbers{0, 1, 2} << Numbers{0, 0, 0};
    QTest::newRow("one") << Numbers{0, 2, 0} << -1 << QStringList{done} << Numbers{1} << Numbers{0, 0, 0};
    QTest::newRow("first refused") << Numbers{1, 2, 3} << 0 << refusal << Numbers{0, 1, 2} << Numbers{1, 0, 0};
    QTest::newRow("second refused") << Numbers{1, 2, 3} << 1 << refusal << Numbers{0, 1, 2} << Numbers{0, 2, 0};
    QTest::newRow("last refused") << Numbers{1, 0, 3} << 2 << refusal << Numbers{0, 2} << Numbers{0, 0, 3};
}

void tst_room_pages::calls()
{
    QFETCH(QVector<int>, wanted);
    QFETCH(int, unknown);
    QFETCH(QStringList, shown);
    QFETCH(QVector<int>, called);
    const auto room = RoomFloor::detail(m_roomNo);
    const QList<RoomCardsDto*> services = room->data()->calllist().list();
    QVERIFY(services.size() >= wanted.size());
    if (unknown >= 0)
        services.at(unknown)->set_contId(QStringLiteral("unknown"));
    RoomCallVm page;
    page.init(room->data());
    for (int i = 0; i < wanted.size(); ++i)
        page.pRoomCallModel()->setNum(i, wanted.at(i));
    const auto enabled = noteEnabled(&page);
    QCOMPARE(page.save(), shown == QStringList{done});
    QCOMPARE(m_room->takeShown(), shown);
    QVector<QJsonObject> calls;
    for (const int i : called) {
        calls.append(
            {{"roomId", room->data()->id()}, {"contId", services.at(i)->contId()}, {"num", wanted.at(i)}});
    }
    QCOMPARE(m_room->allSent(callPath), calls);
    QVector<int> left;
    for (const call_struct& service : page.pRoomCallModel()->getAll().mid(0, wanted.size()))
        left.append(service.num);
    QTEST(left, "left");
    QCOMPARE(*enabled, called.isEmpty() ? QVector<bool>() : busyOnce());
}

void tst_room_pages::noRecord()
{
    RoomRemarkVm remark;
    remark.init(nullptr);
    QCOMPARE(remark.roomId(), QString());
    RoomCallVm call;
    call.init(nullptr);
    QCOMPARE(call.pRoomCallModel()->rowCount(), 0);
}

void tst_room_pages::oneAtATime()
{
    RoomCallVm call;
    call.init(roomWithServices(1)->data());
    call.pRoomCallModel()->add(0);
    RoomRemarkVm remark;
    remark.init(roomWithServices(0)->data());
    for (const QString& path : {callPath, remarkPath}) {
        m_room->answer(path, {});
        m_room->house().fault(path, "delay", 300, 1);
        const auto save = [&] { return path == callPath ? call.save() : remark.save(); };
        bool second = true;
        QTimer::singleShot(50, &call, [&] { second = save(); });
        QVERIFY(save());
        QVERIFY(!second);
        QCOMPARE(m_room->house().seen(path), 1);
    }
}

void tst_room_pages::pageClosedDuringItsCall()
{
    m_room->answer(callPath, {});
    m_room->house().fault(callPath, "delay", 200, 1);
    QPointer<RoomCallVm> call(new RoomCallVm);
    call->init(roomWithServices(2)->data());
    call->pRoomCallModel()->add(0);
    call->pRoomCallModel()->add(1);
    QTimer::singleShot(50, call, [&] { delete call; });
    QVERIFY(call->save());
    QVERIFY(!call);
    QCOMPARE(m_room->allSent(callPath).size(), 2); // what was wanted is still called

    m_room->house().fault(linesPath, "delay", 200, 1);
    QPointer<RoomConsumeVm> lines(new RoomConsumeVm);
    QTimer::singleShot(50, lines, [&] { delete lines; });
    lines->init("R1");
    QVERIFY(!lines);
}

QTEST_GUILESS_MAIN(tst_room_pages)
#include "tst_room_pages.moc"
