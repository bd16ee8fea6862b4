#include "common/MyMessage.h"
#include "common/Sqlite.h"

#include <QDir>
#include <QSignalSpy>
#include <QSqlError>
#include <QSqlQuery>
#include <QTemporaryDir>
#include <QtTest>

class tst_settings : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        m_folder.reset(new QTemporaryDir);
        QVERIFY(QDir::setCurrent(m_folder->path()));
        m_messages.reset(new QSignalSpy(MyMessage::getInstance(), &MyMessage::showMessageSignal));
    }
    void cleanup()
    {
        m_messages.reset();
        QSqlDatabase::removeDatabase(QStringLiteral("qt_sql_default_connection"));
        QDir::setCurrent(QDir::rootPath());
    }

    void firstRun();
    void values_data();
    void values();
    void newValueTakesANewRow();
    void databaseThatCannotBeOpened();
    void databaseThatIsNone();

private:
    QString lastMessage() const
    {
        return m_messages->isEmpty() ? QString() : m_messages->last().first().toString();
    }

    QScopedPointer<QTemporaryDir> m_folder;
    QScopedPointer<QSignalSpy> m_messages;
};

void tst_settings::firstRun()
{
    {
        Sqlite settings;
        QVERIFY(settings.open());
        QCOMPARE(settings.query(QStringLiteral("print")), QString());
        QVERIFY(lastMessage().startsWith(QStringLiteral("查询数据库出错[")));
        QCOMPARE(m_messages->last().at(1).toString(), QStringLiteral("error"));
        settings.addData(QStringLiteral("print"), QStringLiteral("x"));
        QVERIFY(lastMessage().startsWith(QStringLiteral("delete数据库出错[")));

        m_messages->clear();
        QVERIFY(settings.createTable());
        QVERIFY(settings.createTable());
        QCOMPARE(settings.query(QStringLiteral("print")), QString());
        settings.deleteData(QStringLiteral("print"));
        settings.close();
        QVERIFY(m_messages->isEmpty());
    }
    QVERIFY(QFile::exists(m_folder->filePath(QStringLiteral("kv_panel_v2.db"))));
}

void tst_settings::values_data()
{
    QTest::addColumn<QString>("value");
    QTest::newRow("plain") << QStringLiteral("COM3");
    QTest::newRow("chinese and quotes") << QStringLiteral("请%1号';--\"到前台");
    QTest::newRow("longer than declared") << QString(5000, QLatin1Char('x'));
    QTest::newRow("empty") << QStringLiteral("");
    QTest::newRow("null") << QString();
}

void tst_settings::values()
{
    QFETCH(QString, value);
    {
        Sqlite settings;
        QVERIFY(settings.open() && settings.createTable());
        settings.addData(QStringLiteral("key"), value);
        settings.addData(QStringLiteral("other"), QStringLiteral("o"));
        settings.close();
    }
    Sqlite settings;
    QVERIFY(settings.open());
    QCOMPARE(settings.query(QStringLiteral("key")), value);
    settings.deleteData(QStringLiteral("key"));
    QCOMPARE(settings.query(QStringLiteral("key")), QString());
    QCOMPARE(settings.query(QStringLiteral("other")), QStringLiteral("o"));
    settings.close();
    QVERIFY(m_messages->isEmpty());
}

void tst_settings::newValueTakesANewRow()
{
    Sqlite settings;
    QVERIFY(settings.open() && settings.createTable());
    settings.addData(QStringLiteral("key"), QStringLiteral("1"));
    settings.addData(QStringLiteral("key"), QStringLiteral("2"));
    QSqlQuery rows(QStringLiteral("SELECT id, value FROM sys_config WHERE code = 'key'"));
    QVERIFY(rows.next());
    QCOMPARE(rows.value(0).toInt(), 2);
    QCOMPARE(rows.value(1).toString(), QStringLiteral("2"));
    QVERIFY(!rows.next());

    // Rows without a positive number don't count.
    QVERIFY(QSqlQuery().exec(QStringLiteral("UPDATE sys_config SET id = 0 WHERE code = 'key'")));
    QCOMPARE(settings.query(QStringLiteral("key")), QString());
    settings.close();
}

void tst_settings::databaseThatCannotBeOpened()
{
    QVERIFY(QDir().mkdir(QStringLiteral("kv_panel_v2.db")));
    Sqlite settings;
    QVERIFY(!settings.open());
    QCOMPARE(lastMessage(), QStringLiteral("初始化数据库失败"));
}

void tst_settings::databaseThatIsNone()
{
    QFile file(QStringLiteral("kv_panel_v2.db"));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(QByteArray(4096, 'x'));
    file.close();
    Sqlite settings;
    QVERIFY(settings.open());
    QVERIFY(!settings.createTable());
    QVERIFY(lastMessage().startsWith(QStringLiteral("创建数据库表失败[")));
    QVERIFY(lastMessage().size() > QStringLiteral("创建数据库表失败[]").size());
    settings.close();
}

QTEST_GUILESS_MAIN(tst_settings)
#include "tst_settings.moc"
