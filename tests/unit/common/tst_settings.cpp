#include "common/GlobalConfig.h"
#include "common/MyMessage.h"
#include "common/Settings.h"
#include "common/Sqlite.h"

#include <QDir>
#include <QSqlQuery>
#include <QTemporaryDir>
#include <QtTest>

class tst_settings : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        connect(MyMessage::getInstance(), &MyMessage::showMessageSignal, this,
                [this](const QString& text, const QString& type) { m_lastMessage = type + "|" + text; });
    }
    void init()
    {
        m_folder.reset(new QTemporaryDir);
        QVERIFY(QDir::setCurrent(m_folder->path()));
        m_lastMessage.clear();
    }
    void cleanup() { QDir::setCurrent(QDir::rootPath()); }

    void firstRun();
    void values_data();
    void values();
    void newValueTakesANewRow();
    void unusableDatabase();
    void defaults();

private:
    static bool makeTable()
    {
        Sqlite table;
        const bool isMade = table.open() && table.createTable();
        table.close();
        return isMade;
    }

    QScopedPointer<QTemporaryDir> m_folder;
    QString m_lastMessage;
};

void tst_settings::firstRun()
{
    Sqlite table;
    QVERIFY(table.open());
    QCOMPARE(table.query("print"), QString());
    QVERIFY(m_lastMessage.startsWith("error|查询数据库出错["));
    QVERIFY(!table.addData("print", "x"));
    QVERIFY(m_lastMessage.startsWith("error|delete数据库出错["));
    m_lastMessage.clear();
    QVERIFY(table.createTable() && table.createTable());
    QCOMPARE(table.query("print"), QString());
    table.close();
    QCOMPARE(m_lastMessage, QString());
    QVERIFY(QFile::exists("kv_panel_v2.db"));
}

void tst_settings::values_data()
{
    QTest::addColumn<QString>("value");
    QTest::newRow("chinese and quotes") << QStringLiteral("请%1号';--\"到前台");
    QTest::newRow("longer than declared") << QString(5000, 'x');
    QTest::newRow("null") << QString();
}

void tst_settings::values()
{
    QFETCH(QString, value);
    QVERIFY(makeTable());
    QVERIFY(Settings::write("key", value));
    QVERIFY(Settings::write("other", "o"));
    QCOMPARE(Settings::read("key"), value);
    QCOMPARE(Settings::read("other"), QStringLiteral("o"));
    QCOMPARE(m_lastMessage, QString());
}

void tst_settings::newValueTakesANewRow()
{
    Sqlite table;
    QVERIFY(table.open() && table.createTable());
    QVERIFY(table.addData("key", "1") && table.addData("key", "2"));
    QSqlQuery rows("SELECT id, value FROM sys_config WHERE code = 'key'");
    QVERIFY(rows.next());
    QVERIFY(rows.value(0) == 2 && rows.value(1) == "2" && !rows.next());

    // Rows without a positive number don't count.
    QVERIFY(QSqlQuery().exec("UPDATE sys_config SET id = 0 WHERE code = 'key'"));
    QCOMPARE(table.query("key"), QString());
    table.close();
}

void tst_settings::unusableDatabase()
{
    QVERIFY(QDir().mkdir("kv_panel_v2.db"));
    QVERIFY(!Settings::write("key", "value"));
    QCOMPARE(m_lastMessage, QStringLiteral("error|初始化数据库失败"));

    QFile file("kv_panel_v2.db");
    QVERIFY(QDir().rmdir(file.fileName()) && file.open(QIODevice::WriteOnly) &&
            file.write(QByteArray(4096, 'x')));
    file.close();
    m_lastMessage.clear();
    // It is kept under another name, and the terminal begins anew.
    Sqlite table;
    QVERIFY(table.open() && table.createTable());
    table.close();
    QFile aside(table.asideName());
    QVERIFY(aside.open(QIODevice::ReadOnly) && aside.readAll() == QByteArray(4096, 'x'));
    QVERIFY(Settings::write("key", "value"));
    QCOMPARE(Settings::read("key") + m_lastMessage, QStringLiteral("value"));
}

/// A setting that was never stored is what the shared state begins with.
void tst_settings::defaults()
{
    QVERIFY(makeTable());
    for (const Settings::Key& key : Settings::keys()) {
        if (key.number)
            QCOMPARE(Settings::text(key.name).toInt(), GlobalConfig::getInstance()->*key.number);
    }
    QVERIFY(Settings::write("tts_speed", "") && Settings::write("print", "前台"));
    QCOMPARE(Settings::text("tts_speed") + Settings::text("print"), QStringLiteral("0前台"));
}

QTEST_GUILESS_MAIN(tst_settings)
#include "tst_settings.moc"
