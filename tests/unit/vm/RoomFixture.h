#pragma once

#include "support/HouseProcess.h"
#include "support/RoomFloor.h"

#include <QPointer>
#include <QQmlEngine>
#include <QTemporaryDir>
#include <QVector>

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

    /// Makes a view-model as its page does, to be deleted by the caller, and runs the steps.
    QObject* page(const QString& type, const QString& steps = {});
    /// Runs what a page would call: p is the last view-model that was made, store the store's settings. tell()
    /// lets the house tell so of a card, card() has p look it up too; room() gives the record of a room with
    /// these cards, group() a group of rooms to merge. The last step's value.
    QJSValue run(const QString& steps);

    /// What the user saw since the last call, in its order: "error|text", "success|text",
    /// "question|title|text".
    QStringList takeShown();
    /// What the user answers from now on: 1 yes, 0 no.
    void answerQuestions(int answer) { m_answer = answer; }

    /// The page's own fields of the last request on the path, as the house saw them.
    QJsonObject sent(const QString& path);
    /// The same of all requests, the oldest first.
    QVector<QJsonObject> allSent(const QString& path);

    /// Lets the house answer so; an answer without count stands until reset().
    Q_INVOKABLE void answer(const QString& path, const QJsonValue& data, int count = -1);
    void refuse(const QString& path, const QString& text, int count = -1);
    /// Destroys p while the house works on this call, or while the user is asked when there is no path.
    void closeDuring(const QString& path);

    /// The record of room R1, number 101, from further fields; each card number gets "id-number" as id.
    Q_INVOKABLE QObject* madeUpRoom(const QStringList& cardNos, QJsonObject fields);
    /// What the receipt printer took since the last call.
    QString takePrinted();

private:
    void connectPrinter();
    bool logIn();

    const QString m_before;
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
