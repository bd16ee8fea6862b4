#pragma once

#include "RoomFixture.h"

#include "common/GlobalConfig.h"
#include "vm/module2/Module2Vm.h"

#include <QJsonArray>
#include <QJsonDocument>

inline const QString guestPath = QStringLiteral("/bca01/getCardOrderInfo");
inline const QString itemPath = QStringLiteral("/bca01/getItemList");
inline const QString cardSave = QStringLiteral("/bca01/batchUpdateOrder");
inline const QString roomSave = QStringLiteral("/bca01/batchUpdateRoomOrder");

inline QJsonObject json(const QByteArray& text)
{
    QJsonParseError error;
    const QJsonObject object = QJsonDocument::fromJson(text, &error).object();
    return error.error == QJsonParseError::NoError ? object : QJsonObject{{"not", "JSON"}};
}

inline QJsonArray array(const QByteArray& text) { return json("{\"a\":" + text + "}").value("a").toArray(); }

inline QJsonObject with(QJsonObject fields, const QJsonObject& more)
{
    for (auto field = more.begin(); field != more.end(); ++field)
        fields.insert(field.key(), field.value());
    return fields;
}

inline QJsonObject stored(const QString& id, int num, const QByteArray& more = "{}")
{
    return with(with({{"id", id}, {"item_id", "i" + id}, {"itemname", "sold " + id}, {"num", num}},
                     json(R"({"orderStatus":1,"price":5,"server_type":1,"areaId":"A1",
                              "createtime":"2026-11-23 20:00:00"})")),
                json(more));
}

/// A till in an area with a catalogue: plain (0), market price, taste, technician, two goods of other people,
/// one with a desk (6), and a ticket, which isn't sold.
class SalesTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        m_terminal.reset(new RoomFixture);
        QVERIFY(m_terminal->isUp());
    }
    void init()
    {
        m_terminal->reset();
        GlobalConfig::getInstance()->userInfo()->set_workerTypes("经理,收银员");
        m_terminal->answer("/bca01/getTypeList",
                           json(R"({"typeList":[{"id":"T1","name":"one"},{"id":"T2","name":"two"}]})"));
        QJsonArray items = array(R"([{"id":"plain"},{"id":"market","sell_flg":2},{"id":"taste","tagId":7},
            {"id":"service","server_type":2},{"id":"others","worker_type":"助浴师"},
            {"id":"mine","worker_type":"收银员"},{"id":"desk","is_desk_no":1},{"id":"ticket","is_pack_ticket":1}])");
        for (QJsonValueRef item : items)
            item = with({{"name", "name of " + item.toObject().value("id").toString()},
                         {"price", 10},
                         {"server_type", 1}},
                        item.toObject());
        m_terminal->answer(itemPath, QJsonObject{{"itemList", items}});
        m_vm.reset(new Module2Vm);
        m_vm->selectArea("A1", "hall");
    }
    void cleanup() { m_vm.reset(); }
    void cleanupTestCase() { m_terminal.reset(); }

protected:
    void holdCard(const QJsonArray& lines = {}, const QString& number = "8001")
    {
        QJsonObject guest = json(R"({"amount":68.5,"cardInfo":{"id":"C","status":1,"room_id":"R"}})");
        guest.insert("cardInfo", with(guest["cardInfo"].toObject(), {{"cardno", number}}));
        guest.insert("orderList", lines);
        m_terminal->answer(guestPath, guest);
        QVERIFY(m_vm->getOrderInfo({}, number, {}));
    }
    void sell(int index, const QVariantMap& more = {})
    {
        QVariantMap line = m_vm->tapItem(index);
        if (line.contains("merged"))
            return;
        for (auto value = more.begin(); value != more.end(); ++value)
            line.insert(value.key(), value.value());
        m_vm->addNewItem(index, line);
    }

    std::unique_ptr<RoomFixture> m_terminal;
    std::unique_ptr<Module2Vm> m_vm;
};
