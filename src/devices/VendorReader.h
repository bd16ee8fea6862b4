#pragma once

#include "devices/HandCardDevice.h"
#include "platform/DynamicLibrary.h"

#include <condition_variable>
#include <mutex>

class MyMessage;

/// What the hand card drivers share: binding a vendor's library when they are made, and polling it on a thread.
///
/// A driver binds its entry points in its constructor and says how a card is asked for. Its destructor calls
/// endPolling() first, while the entry points still stand.
class VendorReader : public HandCardDevice
{
public:
    ~VendorReader() override;

    void startDevice(int) override;
    void stopDevice() override;
    bool getInitStatus() override { return m_isInitialised; }

protected:
    /// The library's file name as on Windows, and the message for an entry point that is missing, %1 its name.
    VendorReader(const QString& library, const QString& missingMessage);

    bool load();
    template <typename Function>
    bool bind(Function& function, const char* entryPoint)
    {
        return m_library.resolve(function, entryPoint) ||
               fail(m_missingMessage.arg(QString::fromLatin1(entryPoint)));
    }
    /// Notes why the library can't be used; always false.
    bool fail(const QString& message);
    /// The end of the constructor: takes the library as usable, or shows why it isn't.
    void finishLoading(bool isUsable);
    /// The same, with the outcome in the log.
    void finishLoading(bool isUsable, const QString& successLine);
    /// Ends the thread, unless the vendor's code keeps it for over 3 s: it is left behind then. True when the
    /// library was usable and may be closed.
    bool endPolling();

    /// On the thread, before the first card is asked for. False ends the thread.
    virtual bool prepare() { return true; }
    /// On the thread: asks for a card. True when there is one, with its text made of what the library gave, and
    /// its sound given.
    virtual bool readCard(QByteArray& raw, QString& text) = 0;
    /// On the thread, when the polling stops.
    virtual void finish() {}

    void run() override;

private:
    void poll();
    bool isStopped();
    void pause(std::chrono::milliseconds time);

    const QString m_libraryName;
    const QString m_missingMessage;
    QString m_failure;
    bool m_isInitialised = false;
    DynamicLibrary m_library;
    MyMessage* m_message;

    std::mutex m_mutex; ///< guards what follows
    std::condition_variable m_wake;
    bool m_isStopped = false;
    bool m_isPolling = false; ///< the thread may still call the driver
};
