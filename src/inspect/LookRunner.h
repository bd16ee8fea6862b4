#pragma once

#include <QQmlError>
#include <QStringList>
#include <QTimer>

#include <deque>
#include <functional>

class QQmlEngine;

/// One thing to look at.
struct Look
{
    QString name;               ///< also of its picture
    std::function<void()> open; ///< may return only when what it opened has closed
    std::function<QObject*()>
        find; ///< the item, dialog or window that is to be seen; null while it isn't there
    std::function<void(QObject*)> close; ///< after the picture; not called for what never came
    bool isPictured = true;
    int stillMs = 400;    ///< how long it is there with nothing asked before it counts as still
    QString barring = {}; ///< an error with this text says that it isn't for this user; it needn't be seen then
};

/// Looks at one thing after the other while the pages live on. Each is looked at until it stands still; what
/// the pages complain of, and every error that the user is shown meanwhile, counts as a failure of its own. A
/// line for each goes to the standard output and into the log. Main thread.
class LookRunner : public QObject
{
    Q_OBJECT

public:
    /// A picture of each is saved in the folder, which is made; none for an empty text.
    LookRunner(QQmlEngine& engine, const QString& pictureFolder, QObject* parent = nullptr);

    /// What comes after everything that is planned.
    void append(const Look& look) { m_looks.push_back(look); }
    /// What comes next, in this order.
    void insert(const std::vector<Look>& looks) { m_looks.insert(m_looks.begin(), looks.begin(), looks.end()); }
    void start();
    /// Whether an error that the user is shown counts as a failure; else it only stands in the line. True at
    /// first.
    void setCountsMessages(bool counts) { m_countsMessages = counts; }
    /// Whether what can't be read or hit counts as a failure. False at first.
    void setIsStrict(bool isStrict) { m_isStrict = isStrict; }
    /// What counts against what is being looked at.
    void complain(const QString& complaint) { m_complaints.append(complaint); }
    /// What is worth a line, but no failure.
    void report(const QString& line);

Q_SIGNALS:
    /// Nothing is left to look at.
    void finished(int failures);

private:
    void tick();
    void hear(const QString& error);
    void begin();
    void watch();
    void end(QObject* seen);
    void closeUninvited();
    static void finish(const QObjectList& dialogs);
    bool isPictureSaved(const QString& name) const;
    void readThrough(QObject* seen);

    const QString m_pictureFolder;
    QTimer m_timer;
    std::deque<Look> m_looks; ///< what is left; the first may have begun
    bool m_hasBegun = false;
    bool m_isTicking = false;
    int m_ticks = 0;        ///< since it began
    int m_stillTicks = 0;   ///< that it was there, with nothing asked of the back end
    int m_missingTicks = 0; ///< that it wasn't there, with nothing asked either
    bool m_countsMessages = true;
    bool m_isStrict = false;
    bool m_isBarred = false;  ///< what is looked at isn't for this user
    QStringList m_complaints; ///< since it began
    QStringList m_remarks;    ///< what was said, but doesn't count
    int m_looked = 0;
    int m_failed = 0;
};
