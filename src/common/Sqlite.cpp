#include "common/Sqlite.h"

#include "common/Clock.h"
#include "common/MyMessage.h"

#include <QFile>
#include <QSqlError>
#include <QSqlQuery>

namespace {

// clang-format off
const char createStatement[] = "CREATE TABLE sys_config (                            id INTEGER PRIMARY KEY AUTOINCREMENT NOT NULL,                             code VARCHAR(128) NOT NULL UNIQUE,                            value VARCHAR(128) NOT NULL DEFAULT(''))";
// clang-format on

// What SQLite calls the causes that a shop can do something about.
const QLatin1String readOnlyCode("8");
const QLatin1String fullDiskCode("13");
const QLatin1String noDatabaseCode("26");

/// The cause in the user's words where there are some.
QString causeOf(const QSqlQuery& query)
{
    const QString code = query.lastError().nativeErrorCode();
    if (code == readOnlyCode)
        return QStringLiteral("设置文件为只读");
    if (code == fullDiskCode)
        return QStringLiteral("磁盘已满");
    return query.lastError().text();
}

QString deleteFailed(const QSqlQuery& query)
{
    return QStringLiteral("delete数据库出错[%1]").arg(causeOf(query));
}

} // namespace

Sqlite::Sqlite(QObject* parent) : QObject(parent), m_message(MyMessage::getInstance())
{
    if (QSqlDatabase::contains(QStringLiteral("qt_sql_default_connection"))) {
        m_database = QSqlDatabase::database(QStringLiteral("qt_sql_default_connection"), false);
    } else {
        m_database = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"));
        m_database.setDatabaseName(QStringLiteral("kv_panel_v2.db"));
    }
}

bool Sqlite::open()
{
    if (m_database.open())
        return true;
    m_message->ShowError(QStringLiteral("初始化数据库失败"));
    return false;
}

void Sqlite::close() { m_database.close(); }

bool Sqlite::createTable()
{
    if (m_database.tables().contains(QStringLiteral("sys_config")))
        return true;
    QSqlQuery query(m_database);
    if (query.prepare(QString::fromLatin1(createStatement)) && query.exec())
        return true;
    if (query.lastError().nativeErrorCode() == noDatabaseCode && setAside())
        return createTable();
    m_message->ShowError(QStringLiteral("创建数据库表失败[%1]").arg(causeOf(query)));
    return false;
}

/// True when the file stands under another name now and an empty one is open in its place.
bool Sqlite::setAside()
{
    if (!m_asideName.isEmpty())
        return false;
    const QString name = m_database.databaseName();
    m_database.close();
    m_asideName = QStringLiteral("%1.%2").arg(name, Clock::now().toString(QStringLiteral("yyyyMMdd-hhmmss")));
    return QFile::rename(name, m_asideName) && m_database.open();
}

QString Sqlite::query(const QString& code)
{
    QSqlQuery query(m_database);
    const bool prepared = query.prepare(QStringLiteral("SELECT * FROM sys_config where code = :code"));
    query.bindValue(QStringLiteral(":code"), code);
    if (!prepared || !query.exec()) {
        m_message->ShowError(QStringLiteral("查询数据库出错[%1]").arg(query.lastError().text()));
        return {};
    }
    while (query.next()) {
        if (query.value(0).toInt() > 0)
            return query.value(2).toString();
    }
    return {};
}

bool Sqlite::addData(const QString& code, const QString& value)
{
    deleteData(code);
    QSqlQuery query(m_database);
    const bool prepared =
        query.prepare(QStringLiteral("INSERT INTO sys_config (code, value) VALUES(:code,:value)"));
    query.bindValue(QStringLiteral(":code"), code);
    // A null string would be stored as NULL, which the column refuses.
    query.bindValue(QStringLiteral(":value"), value.isNull() ? QStringLiteral("") : value);
    if (prepared && query.exec())
        return true;
    m_message->ShowError(deleteFailed(query));
    return false;
}

void Sqlite::deleteData(const QString& code)
{
    QSqlQuery query(m_database);
    const bool prepared = query.prepare(QStringLiteral("DELETE FROM sys_config WHERE code = :code"));
    query.bindValue(QStringLiteral(":code"), code);
    if (!prepared || !query.exec())
        m_message->ShowError(deleteFailed(query));
}
