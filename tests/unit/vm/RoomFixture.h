#pragma once

#include "support/HouseProcess.h"
#include "support/RoomFloor.h"

#include <QTemporaryDir>
#include <QVector>

#include <memory>

/// A terminal without pages, logged in for the room board, with the demo house behind it: what the view-models
/// of the room pages need. One for a test program, since the shared state lives as long as the process.
class RoomFixture
{
public:
    RoomFixture();
    ~RoomFixture();

    bool isUp() const { return m_isUp; }
    HouseProcess& house() { return m_house; }
    /// Forgets faults, scripted answers, requests, what was shown and printed; questions are answered with yes.
    void reset();

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
    void answer(const QString& path, const QJsonValue& data, int count = -1);
    void refuse(const QString& path, const QString& text, int count = -1);

    /// The detail of a room that only this test knows, from its fields; each card number gets "id-number" as
    /// id.
    Reply<GetRoomDetailNew> madeUpDetail(QJsonObject fields, const QStringList& cardNos);
    /// What the receipt printer took since the last call.
    QString takePrinted();

private:
    void connectPrinter();
    bool logIn();

    const QString m_before;
    QTemporaryDir m_folder;
    HouseProcess m_house;
    QObject m_listener;
    QStringList m_shown;
    int m_answer = 1;
    int m_paper = -1; ///< the reading end of the printer's device file
    bool m_isUp = false;
};

/// Notes each change of a view-model's isEnabled.
template <typename ViewModel>
std::shared_ptr<QVector<bool>> noteEnabled(ViewModel* viewModel)
{
    auto seen = std::make_shared<QVector<bool>>();
    QObject::connect(viewModel, &ViewModel::isEnabledChanged, viewModel,
                     [=] { seen->append(viewModel->isEnabled()); });
    return seen;
}

/// The order in which an action that runs once leaves isEnabled.
inline QVector<bool> busyOnce() { return {false, true}; }
