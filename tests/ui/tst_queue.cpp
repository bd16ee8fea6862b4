// The bath helper's station, by taps: who acts, what each button sends, what the lists show.

#include "Terminal.h"

#include "app/MainClass.h"
#include "common/GlobalConfig.h"

#include <QFontMetricsF>
#include <QJsonArray>
#include <QQuickItem>
#include <QQuickWindow>
#include <QtTest>

namespace {

const QString listPath = QStringLiteral("/bca01/getHardCardCallList");

QJsonObject entry(int number, int status = 1, int minutes = 5, int calls = 0)
{
    return {{"id", QString("e%1").arg(number)},
            {"cardNo", QString::number(8000 + number)},
            {"status", status},
            {"statusVal", status == 3 ? "服务中" : status == 2 ? "已叫号" : "等待中"},
            {"callNum", calls},
            {"uptime", "20:15:03"},
            {"minuteNum", minutes}};
}

QJsonArray entries(int first, int count, int status = 1)
{
    QJsonArray list;
    for (int i = 0; i < count; ++i)
        list.append(entry(first + i, status == 2 && i % 4 == 3 ? 3 : status, 3 * (count - i), status > 1));
    return list;
}

} // namespace

class tst_queue : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void cleanupTestCase() { m_terminal.reset(); }
    void looks();

private:
    /// What the back end tells from now on, shown.
    void show(const QJsonArray& waiting, const QJsonArray& called)
    {
        m_terminal->house().answer(listPath, ok(QJsonObject{{"waitCallInfos", waiting}, {"callInfos", called}}));
        event();
    }
    static void event()
    {
        Q_EMIT MainClass::getInstance()->mqttSignal(GlobalConfig::getInstance()->MQTT_HARDCARDSCALLSTATUS(), {});
    }

    std::unique_ptr<Terminal> m_terminal;
};

void tst_queue::initTestCase()
{
    m_terminal.reset(new Terminal);
    QVERIFY(m_terminal->isUp());
    m_terminal->login("tile_HELP_BASH_WAIT", "601", "601").walk("-loginDlg +Module4 +waiting_3");
    WALKED(m_terminal->picture("queue"));
}

void tst_queue::looks()
{
    show({}, {});
    WALKED(m_terminal->walk("-waiting_0").picture("queue-empty"));
    show(entries(1, 3), entries(50, 2, 2));
    WALKED(m_terminal->walk("+waiting_2").picture("queue-three"));
    show(entries(1, 40), entries(50, 12, 2));
    WALKED(m_terminal->walk("+called_11 ~3200").picture("queue-crowd"));
    m_terminal->house().reset();
}

QTEST_MAIN(tst_queue)
#include "tst_queue.moc"
