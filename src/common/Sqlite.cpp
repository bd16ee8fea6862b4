#include "common/Sqlite.h"

#include "common/MyMessage.h"

#include <QSqlError>
#include <QSqlQuery>

namespace {

// clang-format off
const char createStatement[] = "CREATE TABLE sys_config (                            id INTEGER PRIMARY KEY AUTOINCREMENT NOT NULL,                             code VARCHAR(128) NOT NULL UNIQUE,                            value VARCHAR(128) NOT NULL DEFAULT(''))";
// clang-format on

QString deleteFailed(const QSqlQuery& query)
{
    return QStringLiteral("delete数据库出错[%1]").arg(query.lastError().text());
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
    m_message->ShowError(QStringLiteral("创建数据库表失败[%1]").arg(query.lastError().text()));
    return false;
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
