// Many orders by chance, card and room mode, against the house's books line by line. KV_ORDERS tells how many.

#include "RoomFixture.h"

#include "common/GlobalConfig.h"
#include "services/Baa01Service.h"
#include "services/Bba01Service.h"
#include "vm/dialogs/TasteVm.h"
#include "vm/module2/Module2Vm.h"

#include <QJsonArray>
#include <QtTest>

#include <random>

class tst_sales_books : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        m_terminal.reset(new RoomFixture);
        QVERIFY(m_terminal->isUp());
        for (const HandCardDto* card : call(&Baa01Service::getHandCardList, {{"status", 1}})->data()->list())
            m_guests.append({{}, card->cardno()});
        for (const RoomDto* room : call(&Bba01Service::getRoomList)->data()) {
            if (room->status() == 2)
                m_guests.append({room->code(), {}});
        }
        QVERIFY(m_guests.size() > 20);
    }
    void books();

private:
    int chance(int below) { return static_cast<int>(m_dice() % static_cast<unsigned>(below)); }
    template <typename List>
    auto any(const List& list)
    {
        return list.at(chance(list.size()));
    }
    QString anyStaff() { return QString::number(801 + chance(20)); }
    QJsonArray read(const QString& guest) { return m_terminal->house().books(guest); }
    void enterLine();
    void changeLine();
    void chargeBack();
    void order(int number);

    std::unique_ptr<RoomFixture> m_terminal;
    std::mt19937 m_dice{20261123};
    QVector<QPair<QString, QString>> m_guests; ///< room or card
    std::unique_ptr<Module2Vm> m_vm;
    QJsonArray m_before;             ///< the guest's books when he was found
    QJsonArray m_new;                ///< what the books should get; the newest first, as the list shows them
    QMap<QString, int> m_chargeback; ///< by the stored line's id
    QMap<QString, int> m_counts;     ///< how much of which kind was entered
};

/// A tap on any tile, and any answers to what it asks.
void tst_sales_books::enterLine()
{
    const auto area = any(m_vm->areaList()->rows());
    m_vm->selectArea(area.areaId, area.areaName);
    m_vm->onSelectType(any(m_vm->typeList()->rows()).typeId);
    const int index = chance(m_vm->itemList()->rowCount());
    const item_struct item = m_vm->itemList()->row(index);
    QVariantMap line = m_vm->tapItem(index);
    if (line.contains("merged")) {
        for (int i = 0; i < m_new.size(); ++i) {
            QJsonObject present = m_new[i].toObject();
            if (present["item"] != item.itemId)
                continue;
            present["num"] = present["num"].toInt() + 1;
            m_new[i] = present;
            return;
        }
        QFAIL("merged into no line");
    }
    QJsonObject expected{
        {"item", item.itemId}, {"num", 1},        {"price", item.price},   {"status", 1},
        {"area", area.areaId}, {"pusher", ""},    {"clockKind", 0},        {"isOvertime", false},
        {"remark", ""},        {"staff", "1001"}, {"tastes", QJsonArray()}};
    if (item.sellFlg == marketPriceSale)
        expected["price"] = 0.5 * chance(400);
    if (item.tagId > 0) {
        TasteVm tastes;
        tastes.getTasteApi(item.itemId);
        tastes.tasteTagModel()->row(0)->selModel()->onChecked(chance(3), false);
        line.insert("tagIds", tastes.getCheckedSel());
        expected["tastes"] = QJsonArray::fromStringList(tastes.getCheckedSel());
        expected["num"] = 1 + chance(3);
        expected["remark"] = "少放";
    }
    if (item.serverType == TechnicianLine) {
        expected["clockKind"] = 1 + chance(6);
        expected["isOvertime"] = chance(2) == 1;
        expected["pusher"] = chance(2) == 1 ? anyStaff() : QString();
    }
    if (!line.contains("staffNo"))
        expected["staff"] = anyStaff();
    for (const char* key : {"num", "price", "remark"})
        line[key] = expected[key].toVariant();
    line["staffNo"] = expected["staff"].toString();
    line["pushNo"] = expected["pusher"].toString();
    line["serviceType"] = expected["clockKind"].toInt();
    line["overFlg"] = expected["isOvertime"].toBool() ? 1 : 0;
    m_vm->addNewItem(index, line);
    if (item.serverType == TicketLine)
        expected["staff"] = QString(); // counts for nobody
    m_counts[QString("kind %1").arg(item.serverType)]++;
    expected.insert("listed", item.price);
    expected.insert("desk", item.is_desk_no == 1 ? "7" : "");
    m_new.prepend(expected);
}

void tst_sales_books::changeLine()
{
    if (m_new.isEmpty())
        return;
    const int row = chance(m_new.size());
    QJsonObject line = m_new[row].toObject();
    switch (chance(5)) {
    case 0:
        m_vm->deleteNewItem(row);
        m_new.removeAt(row);
        return;
    case 1:
        m_vm->giveFree(row);
        line["status"] = line["status"].toInt() == 1 ? 2 : 1;
        m_counts["gift"]++;
        break;
    case 2:
        m_vm->subNum(row, 1);
        line["num"] = qMax(1, line["num"].toInt() - 1);
        break;
    case 3:
        line["num"] = 1 + chance(12);
        m_vm->changeNum(row, line["num"].toInt());
        break;
    default:
        m_vm->setRemark(row, "备注");
        line["remark"] = "备注";
    }
    m_new[row] = line;
}

/// Of what stands on the guest himself, a room's list has its cards' lines too; a service may have begun.
void tst_sales_books::chargeBack()
{
    const int row = m_vm->oldItemList()->rowCount() > 0 ? chance(m_vm->oldItemList()->rowCount()) : 0;
    const old_item_struct stored = m_vm->oldItemList()->row(row);
    const auto isOwn = [&](const QJsonValue& line) { return line.toObject()["id"] == stored.orderId; };
    if (std::none_of(m_before.begin(), m_before.end(), isOwn))
        return;
    const double left = m_vm->checkRefundNum(row);
    if (left < 1 || (stored.serverType != GoodsLine && stored.serverType != ServiceLine))
        return;
    const int num = 1 + chance(static_cast<int>(left));
    m_vm->refund(row, num, {});
    m_chargeback[stored.orderId] += num;
    m_counts["chargeback"]++;
}

void tst_sales_books::order(int number)
{
    const auto [room, card] = any(m_guests);
    m_new = {};
    m_chargeback.clear();
    QVERIFY(m_vm->getOrderInfo({}, card, room));
    QJsonArray expected;
    m_before = read(room + card);
    for (int step = chance(4); step >= 0; --step)
        enterLine();
    for (int step = chance(4); step > 0; --step)
        changeLine();
    for (int step = chance(3); step > 0; --step)
        chargeBack();
    for (const QJsonValue& value : m_before) {
        QJsonObject line = value.toObject();
        const int num = line["num"].toInt() - m_chargeback.take(line.take("id").toString());
        line["num"] = num;
        if (num > 0)
            expected.append(line);
    }
    QVERIFY(m_chargeback.isEmpty()); // all of this guest
    for (const QJsonValue& value : m_new) {
        QJsonObject line = value.toObject();
        const double listed = line.take("listed").toDouble();
        if (line["status"] == 2)
            line["price"] = listed;
        line.insert("guest", room + card);
        line.insert("isRoom", card.isEmpty());
        expected.append(line);
    }
    m_counts[card.isEmpty() ? "room" : "card"]++;
    if (m_vm->newItemList()->rowCount() == 0)
        return;
    QVERIFY2(m_vm->save("7"), qPrintable(m_terminal->takeShown().join(' ')));
    QJsonArray after;
    for (const QJsonValue& value : read(room + card)) {
        QJsonObject line = value.toObject();
        line.remove("id");
        after.append(line);
    }
    if (after != expected) {
        for (int i = 0; i < qMax(after.size(), expected.size()); ++i) {
            if (after.at(i) != expected.at(i))
                qDebug() << "order" << number << "line" << i << after.at(i) << "expected" << expected.at(i);
        }
        QFAIL("the books differ");
    }
    // What the till shows of them.
    QVERIFY(m_vm->getOrderInfo({}, card, room));
    m_terminal->takeShown();
    m_terminal->takePrinted();
}

void tst_sales_books::books()
{
    const int orders = qEnvironmentVariableIsSet("KV_ORDERS") ? qEnvironmentVariableIntValue("KV_ORDERS") : 100;
    m_vm.reset(new Module2Vm);
    for (int i = 0; i < orders && !QTest::currentTestFailed(); ++i)
        order(i);
    for (const char* kind : {"kind 1", "kind 2", "kind 3", "gift", "chargeback", "room", "card"})
        QVERIFY2(m_counts.value(kind) > 0, kind);
    qInfo() << orders << "orders:" << m_counts;
    m_vm.reset();
}

QTEST_GUILESS_MAIN(tst_sales_books)
#include "tst_sales_books.moc"
