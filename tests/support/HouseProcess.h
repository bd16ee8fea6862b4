#pragma once

#include "support/ChildProcess.h"

#include <QJsonArray>
#include <QJsonObject>
#include <QStringList>

/// The demo back end, run for one test on a port of its own and ended with it.
class HouseProcess
{
public:
    /// Starts it with these further options; ready when this returns, else isReady() says no.
    explicit HouseProcess(const QStringList& options = {});
    ~HouseProcess();

    /// Where this build's programs lie.
    static QString programFolder();

    bool isReady() const { return !m_url.isEmpty(); }
    QString url() const { return m_url; }

    /// Faults, scripted answers and what was seen, over the control path.
    void fault(const QString& path, const QString& kind, int arg = 0, int count = -1);
    /// One of the house's other orders, such as "meal".
    void order(const QString& what, const QJsonObject& order) { control(what, order); }
    void answer(const QString& path, const QJsonValue& body, int count = -1);
    /// Settings of the store or the terminals: the house follows them at once, a terminal at its next start.
    void config(const QJsonObject& settings);
    /// What stands in the books of the card or room of this number, still to be paid.
    QJsonArray books(const QString& guest);
    /// Forgets faults, answers and requests.
    void reset();
    /// The last requests on the path, the oldest first.
    QJsonArray requests(const QString& path);
    QJsonObject lastRequest(const QString& path);
    int seen(const QString& path);
    int executed(const QString& path);
    /// What the house wrote about wrong requests.
    QString log();

private:
    QByteArray control(const QString& command, const QJsonObject& body = {});

    ChildProcess m_process;
    QString m_url;
};
