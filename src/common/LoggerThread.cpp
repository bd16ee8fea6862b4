#include "common/LoggerThread.h"

#include "common/Clock.h"
#include "common/LogFolder.h"

#include <QDir>
#include <QFile>
#include <QMutex>

#include <atomic>
#include <cstdio>

namespace {

constexpr int mostCounted = 16; ///< different lines at a time
constexpr int mostCountedChars = 1000;
constexpr int mostLineChars = 256 * 1024; ///< more than a reply that is cut, and what was asked

} // namespace

LoggerThread* LoggerThread::getInstance()
{
    static QMutex mutex;
    static std::atomic<LoggerThread*> instance{nullptr};
    if (!instance) {
        QMutexLocker lock(&mutex);
        if (!instance)
            instance = new LoggerThread(logFolder(), Limits());
    }
    return instance;
}

LoggerThread::LoggerThread(const QString& folder, const Limits& limits) : m_folder(folder), m_limits(limits)
{
    start(QThread::InheritPriority);
}

LoggerThread::~LoggerThread()
{
    {
        std::lock_guard<std::mutex> lock(m_mutex);
        m_running = false;
    }
    m_wake.notify_all();
    quit();
    wait();
}

void LoggerThread::log(const QString& line)
{
    std::lock_guard<std::mutex> lock(m_mutex);
    append(line);
}

void LoggerThread::logCounted(const QString& line)
{
    const QString shown = line.left(mostCountedChars);
    std::lock_guard<std::mutex> lock(m_mutex);
    if (m_counted.isEmpty())
        m_counting.start();
    for (Counted& known : m_counted) {
        if (known.line == shown) {
            ++known.more;
            return;
        }
    }
    if (m_counted.size() == mostCounted) {
        ++m_otherCounted;
        return;
    }
    m_counted.append({shown, 0});
    append(shown);
}

void LoggerThread::tellCounts()
{
    for (const Counted& counted : qAsConst(m_counted)) {
        if (counted.more > 0)
            append(QStringLiteral("%1: %2 times more").arg(counted.line).arg(counted.more));
    }
    if (m_otherCounted > 0)
        append(QStringLiteral("#LogerThread# %1 other lines like these").arg(m_otherCounted));
    m_counted.clear();
    m_otherCounted = 0;
}

void LoggerThread::append(const QString& line)
{
    m_queue.append(line.size() <= mostLineChars
                       ? line
                       : line.left(mostLineChars) + QStringLiteral("… (%1 characters)").arg(line.size()));
    m_queuedChars += m_queue.last().size();
    dropOverflow();
}

void LoggerThread::drain(int timeoutMs)
{
    std::unique_lock<std::mutex> lock(m_mutex);
    tellCounts();
    m_isHurried = true;
    m_wake.notify_all();
    m_drained.wait_for(lock, std::chrono::milliseconds(timeoutMs),
                       [this] { return m_queue.isEmpty() && !m_isWriting; });
    m_isHurried = false;
}

void LoggerThread::dropOverflow()
{
    while (m_queue.size() > m_limits.queuedLines ||
           (m_queuedChars > m_limits.queuedChars && m_queue.size() > 1)) {
        m_queuedChars -= m_queue.takeFirst().size();
        ++m_dropped;
    }
}

bool LoggerThread::goesOn()
{
    std::lock_guard<std::mutex> lock(m_mutex);
    return m_running;
}

void LoggerThread::pause(int ms, bool mayHurry)
{
    std::unique_lock<std::mutex> lock(m_mutex);
    m_wake.wait_for(lock, std::chrono::milliseconds(ms),
                    [&] { return !m_running || (mayHurry && m_isHurried && !m_queue.isEmpty()); });
}

QString LoggerThread::todaysName() const
{
    return QStringLiteral("%1/%2.log").arg(m_folder, Clock::now().toString(QStringLiteral("yyyy-MM-dd")));
}

void LoggerThread::run()
{
    std::printf("#LogerThread# run() %s\n", qPrintable(m_folder));
    std::fflush(stdout);
    QDir().mkpath(m_folder);

    QFile file(todaysName());
    while (goesOn()) {
        if (file.isOpen() && file.size() >= m_limits.fileBytes)
            file.close();
        if (!file.isOpen() && !openFile(file))
            continue;
        writeQueue(file);
        pause(m_limits.pauseMs, true);
    }
    file.close();
}

bool LoggerThread::openFile(QFile& file)
{
    const QString name = todaysName();
    file.setFileName(name);
    if (file.size() >= m_limits.fileBytes)
        putAside(name);
    // Unbuffered, so that a full disk shows at the line that it hits.
    if (!file.open(QIODevice::WriteOnly | QIODevice::Append | QIODevice::Unbuffered)) {
        std::printf("#LogerThread# run() open log file fail! %s %s\n", qPrintable(file.errorString()),
                    qPrintable(name));
        std::fflush(stdout);
        pause(m_limits.failedOpenPauseMs);
        return false;
    }
    return true;
}

/// One that can't be moved is written on: better a long file than none.
void LoggerThread::putAside(const QString& name) const
{
    constexpr int keptFiles = 9;
    const auto aside = [&](int number) { return QStringLiteral("%1.%2").arg(name).arg(number); };
    QFile::remove(aside(keptFiles));
    for (int number = keptFiles - 1; number > 0; --number)
        QFile::rename(aside(number), aside(number + 1));
    QFile::rename(name, aside(1));
}

void LoggerThread::writeQueue(QFile& file)
{
    qint64 dropped = 0;
    {
        std::lock_guard<std::mutex> lock(m_mutex);
        if (m_counted.size() > 0 && m_counting.hasExpired(m_limits.countedMs))
            tellCounts();
        dropped = m_dropped;
    }
    if (dropped > 0) {
        if (!writeLine(file, QStringLiteral("#LogerThread# %1 lines dropped").arg(dropped)))
            return;
        std::lock_guard<std::mutex> lock(m_mutex);
        m_dropped -= dropped;
    }

    QString line;
    while (takeLine(line)) {
        if (!writeLine(file, line)) {
            putBack(line);
            return;
        }
        if (file.size() >= m_limits.fileBytes)
            return;
    }
}

bool LoggerThread::writeLine(QFile& file, const QString& line)
{
    const qint64 before = file.size();
    const QByteArray bytes = line.toLocal8Bit() + '\n';
    if (file.write(bytes) == bytes.size())
        return true;
    // Half a line would stand there twice once the rest can be written.
    file.resize(before);
    return false;
}

bool LoggerThread::takeLine(QString& line)
{
    std::lock_guard<std::mutex> lock(m_mutex);
    m_isWriting = false;
    if (!m_running || m_queue.isEmpty()) {
        m_drained.notify_all();
        return false;
    }
    m_isWriting = true;
    line = m_queue.takeFirst();
    m_queuedChars -= line.size();
    return true;
}

void LoggerThread::putBack(const QString& line)
{
    std::lock_guard<std::mutex> lock(m_mutex);
    m_queue.prepend(line);
    m_queuedChars += line.size();
    dropOverflow();
}
