#pragma once

#include <QObject>
#include <QSqlDatabase>

class MyMessage;

/// The settings table of this machine, "kv_panel_v2.db" in the working directory. Made on the stack for each
/// use, on the main thread. Failures are shown to the user and give an empty or false result.
class Sqlite : public QObject
{
    Q_OBJECT

public:
    explicit Sqlite(QObject* parent = nullptr);

    bool open();
    void close();
    /// True when the table is there or could be made. A file that is no database is set aside under another
    /// name, and a new one takes its place; asideName() tells then.
    bool createTable();
    /// Where createTable() has put the file that was no database; empty when it was one.
    QString asideName() const { return m_asideName; }
    /// The value under the key, empty when there is none.
    QString query(const QString& code);
    /// Puts a row in place of the key's old one; false when it isn't there afterwards.
    bool addData(const QString& code, const QString& value);
    void deleteData(const QString& code);

    /// What comes in between is in the file whole or not at all, however the program ends.
    bool begin() { return m_database.transaction(); }
    bool commit() { return m_database.commit(); }
    void rollback() { m_database.rollback(); }

private:
    bool setAside();

    MyMessage* m_message;
    QString m_asideName;
    QSqlDatabase m_database;
};
