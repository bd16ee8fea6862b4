#pragma once

#include <QThread>

/// Front of the staff card reader, which every terminal has.
class StaffDevice : public QThread
{
    Q_OBJECT

public:
    /// The reader of this machine, not started. Owned by the caller.
    static StaffDevice* initDevice();

    using QThread::QThread;

    virtual void startDevice() {}

Q_SIGNALS:
    /// One card's text, never empty.
    void sendData(QString s);
};
