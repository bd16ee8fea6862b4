#include "devices/VendorReader.h"

#include "common/MyMessage.h"

#include <QDebug>
#include <QFileInfo>

namespace {

constexpr std::chrono::milliseconds pauseWithoutCard(100);
constexpr std::chrono::milliseconds pauseAfterCard(500);
constexpr std::chrono::seconds endLimit(3);

} // namespace

VendorReader::VendorReader(const QString& library, const QString& missingMessage)
    : m_libraryName(library), m_missingMessage(missingMessage), m_message(MyMessage::getInstance())
{
}

VendorReader::~VendorReader()
{
    Q_ASSERT(!isRunning());
    m_library.unload();
}

bool VendorReader::load()
{
    const QString standIn = QStringLiteral("lib%1.so").arg(QFileInfo(m_libraryName).completeBaseName());
    return m_library.load({m_libraryName, standIn}) ||
           fail(QStringLiteral("加载动态链接库%1失败").arg(m_libraryName));
}

bool VendorReader::fail(const QString& message)
{
    m_failure = message;
    return false;
}

void VendorReader::finishLoading(bool isUsable)
{
    m_isInitialised = isUsable;
    if (isUsable)
        return;
    m_library.unload();
    m_message->ShowError(m_failure);
}

void VendorReader::finishLoading(bool isUsable, const QString& successLine)
{
    finishLoading(isUsable);
    qDebug().noquote() << (isUsable ? successLine : m_failure);
}

void VendorReader::startDevice(int)
{
    if (!m_isInitialised)
        return;
    std::lock_guard<std::mutex> lock(m_mutex);
    m_isStopped = false;
    if (isRunning())
        return;
    start(QThread::InheritPriority);
    m_isPolling = isRunning();
}

void VendorReader::stopDevice() { endPolling(); }

bool VendorReader::endPolling()
{
    if (!m_isInitialised)
        return false;
    {
        std::unique_lock<std::mutex> lock(m_mutex);
        m_isStopped = true;
        m_wake.notify_all();
        if (!m_wake.wait_for(lock, endLimit, [this] { return !m_isPolling; })) {
            qDebug().noquote() << m_libraryName << "doesn't return";
            return false;
        }
    }
    wait();
    return true;
}

void VendorReader::run()
{
    if (prepare())
        poll();
    std::lock_guard<std::mutex> lock(m_mutex);
    m_isPolling = false;
    m_wake.notify_all();
}

void VendorReader::poll()
{
    while (!isStopped()) {
        QByteArray raw;
        QString text;
        const bool isCard = readCard(raw, text);
        if (isCard) {
            Q_EMIT received(raw, text);
            Q_EMIT sendData(text);
        }
        pause(isCard ? pauseAfterCard : pauseWithoutCard);
    }
    finish();
    quit();
}

bool VendorReader::isStopped()
{
    std::lock_guard<std::mutex> lock(m_mutex);
    return m_isStopped;
}

/// A stop cuts it short.
void VendorReader::pause(std::chrono::milliseconds time)
{
    std::unique_lock<std::mutex> lock(m_mutex);
    m_wake.wait_for(lock, time, [this] { return m_isStopped; });
}
