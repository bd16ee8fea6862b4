#pragma once

#include <QElapsedTimer>
#include <QList>
#include <QString>
#include <QThread>
#include <QVector>

#include <condition_variable>
#include <mutex>

class QFile;

/// Writes log lines to one file a day, so that no caller waits for the disk.
///
/// A file that has reached its size limit is put aside as ".1", those before it move on up to ".9", and the
/// day's file begins anew: the last 100 MiB of a day are on record. The files are their user's alone. Lines
/// that can't be written wait in memory, up to a bound; beyond it the oldest are dropped and counted, and the
/// count is written when writing goes on.
class LoggerThread : public QThread
{
    Q_OBJECT

public:
    /// What bounds the writer; the defaults are the program's.
    struct Limits
    {
        qint64 fileBytes = 10485760;  ///< at this size or above a file is put aside
        int queuedLines = 20000;      ///< lines that wait in memory at most
        qint64 queuedChars = 4000000; ///< their characters at most, for whole replies are logged
        int pauseMs = 500;            ///< after each round
        int failedOpenPauseMs = 1000; ///< after a file that couldn't be opened
        int countedMs = 10000;        ///< for which lines that come again are only counted
    };

    /// The process's writer, into the folder "log" beside the program; made on first use.
    static LoggerThread* getInstance();

    /// Starts at once. The folder is made when it doesn't exist.
    LoggerThread(const QString& folder, const Limits& limits);
    /// Ends the thread; lines still waiting are not written.
    ~LoggerThread() override;

    /// Appends a line; of one over 256 Ki characters its beginning and its length. Any thread.
    void log(const QString& line);
    /// The same for one of those lines that somebody outside may have written without end: it is written when
    /// it comes first, and after 10 s how many times more it came. Beyond 16 different ones they are only
    /// counted.
    void logCounted(const QString& line);
    /// Waits until every line so far is written, but no longer than the time given.
    void drain(int timeoutMs);

protected:
    void run() override;

private:
    bool goesOn();
    void pause(int ms, bool mayHurry = false);
    bool openFile(QFile& file);
    void writeQueue(QFile& file);
    bool writeLine(QFile& file, const QString& line);
    bool takeLine(QString& line);
    void putBack(const QString& line);
    void append(const QString& line);
    void dropOverflow();
    void tellCounts();
    void putAside(const QString& name) const;
    QString todaysName() const;

    const QString m_folder;
    const Limits m_limits;

    std::mutex m_mutex; ///< guards what follows
    std::condition_variable m_wake;
    bool m_running = true;
    QList<QString> m_queue;
    qint64 m_queuedChars = 0;
    qint64 m_dropped = 0;
    struct Counted
    {
        QString line;
        qint64 more;
    };
    QVector<Counted> m_counted;
    qint64 m_otherCounted = 0; ///< lines beyond these
    QElapsedTimer m_counting;  ///< since the first of them
    bool m_isWriting = false;  ///< a line has left the queue and isn't in the file yet
    bool m_isHurried = false;  ///< someone waits for the queue to be empty
    std::condition_variable m_drained;
};
