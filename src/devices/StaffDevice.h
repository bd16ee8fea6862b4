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
    /// The port that it reads, by the name that the settings have; empty while none is open.
    virtual QString openPort() const { return {}; }

Q_SIGNALS:
    /// One card's text, never empty.
    void sendData(QString s);
    /// What the line brought, before sendData, and the card's text that came of it; empty when there is none.
    void received(QByteArray raw, QString text);
};
