#pragma once

#include "support/HouseProcess.h"
#include "support/RoomFloor.h"

#include <QPointer>
#include <QQmlEngine>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QtTest>

inline const QString roomsPath = QStringLiteral("/bba01/getRoomList");
inline const QString plansPath = QStringLiteral("/bba01/getPlanListNew");
inline const QString done = QStringLiteral("success|操作成功");

/// A terminal logged in for the room board, with the demo house behind it and with scripts in place of pages:
/// what the view-models of the room pages need. One for a test program, since the shared state lives as long as
/// the process.
class RoomFixture : public QObject
{
    Q_OBJECT

public:
    RoomFixture();
    ~RoomFixture() override;

    bool isUp() const { return m_isUp; }
    HouseProcess& house() { return m_house; }
    /// In the working directory of the test.
    QString filePath(const QString& name) const { return m_folder.filePath(name); }
    /// Forgets faults, scripted answers, requests, what was shown and printed; questions are answered with yes,
    /// and the store is one in which everything is allowed and hand cards are used.
    void reset();

    /// Makes a view-model as its page does, to be deleted by the caller, and runs the steps; those before "||"
    /// are run before it is made.
    QObject* page(const QString& type, const QString& steps = {});
    /// Runs what a page would call, and gives the last step's value. p is the last view-model that was made, f
    /// the fixture, store, user and terminal are the shared settings and the operator; the rest is in the
    /// script.
    QJSValue run(const QString& steps);
    /// What the steps give, and what is shown meanwhile.
    QString told(const QString& steps)
    {
        const QString value = run(steps).toString();
        return (value + " " + takeShown().join("; ")).trimmed();
    }
    /// The table's row: the page; the steps; what to look at in the end; what it says; what was shown.
    void check(const QStringList& row);
    /// Destroys p while the house works on this call, or while the user is asked when there is no path.
    void closeDuring(const QString& path);

    /// What the user saw since the last call, in its order: "error|text", "success|text",
    /// "question|title|text".
    QStringList takeShown() { return std::exchange(m_shown, {}); }
    /// What the user answers from now on: 1 yes, 0 no.
    Q_INVOKABLE void answerQuestions(int answer) { m_answer = answer; }

    /// The page's own fields of the requests on the path, as the house saw them, the oldest first; of the last
    /// one.
    QVector<QJsonObject> allSent(const QString& path);
    Q_INVOKABLE QJsonObject sent(const QString& path);
    Q_INVOKABLE int seen(const QString& path) { return m_house.seen(path); }

    /// Lets the house answer so; an answer without count stands until reset().
    Q_INVOKABLE void answer(const QString& path, const QJsonValue& data, int count = -1);
    Q_INVOKABLE void refuse(const QString& path, const QString& text, int count = -1);
    /// Takes a right from the operator, who has all that a room needs.
    Q_INVOKABLE void dropRight(const QString& code);
    /// A room's record as a page gets it, until the next one.
    Q_INVOKABLE QObject* record(const QJsonValue& fields);
    /// What a list shows in this role, the checked row with a star.
    Q_INVOKABLE QString listed(QObject* list, const QString& role);
    /// What the receipt printer took since the last call.
    QString takePrinted();

private:
    void connectPrinter();
    bool logIn();
    /// Makes an object known to the steps.
    void know(const QString& name, QObject* object);

    QTemporaryDir m_folder;
    HouseProcess m_house;
    QQmlEngine m_engine;
    QPointer<QObject> m_page;
    Reply<GetRoomDetailNew> m_record;
    QStringList m_shown;
    int m_answer = 1;
    int m_paper = -1; ///< the reading end of the printer's device file
    bool m_isUp = false;
};

/// Makes the rows of a table that is a text: a row a line, its cells between bars with blanks; a line that
/// begins with blanks goes on with the row before.
inline void addRows(const char* table)
{
    QTest::addColumn<QStringList>("cells");
    const QString text = QString::fromUtf8(table).trimmed().replace(QRegularExpression("\n +"), " ");
    for (const QString& row : text.split('\n')) {
        QStringList cells = row.split(QRegularExpression(" \\|(?= |$)"));
        cells.replaceInStrings(QRegularExpression("^ +| +$"), {});
        QTest::newRow(qPrintable(row)) << cells;
    }
}
