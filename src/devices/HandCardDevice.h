#pragma once

#include <QThread>

/// Front of the hand card reader, which some terminals have. The thread polls the reader; what is called here
/// is called on the thread that owns the object.
class HandCardDevice : public QThread
{
    Q_OBJECT

public:
    /// The driver of a reader model, its library loaded, not started. Null for a model without a driver. Owned
    /// by the caller.
    static HandCardDevice* initDevice(int lockType);

    using QThread::QThread;

    /// Begins polling; the argument has no effect.
    virtual void startDevice(int) {}
    /// Returns once the polling has ended, a read in progress included, and at the latest after 3 s.
    virtual void stopDevice() {}
    /// False when the reader's library can't be used: nothing will ever be read.
    virtual bool getInitStatus() { return true; }

Q_SIGNALS:
    /// One card's text. Emitted on the polling thread: connect it with a context object.
    void sendData(QString s);
    /// What the reader's library gave, before sendData, and the card's text that came of it. On the same
    /// thread.
    void received(QByteArray raw, QString text);
};
