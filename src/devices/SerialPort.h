#pragma once

#include "devices/StaffDevice.h"

#include <QSerialPort>
#include <QTimer>

class MyMessage;

/// The staff card reader on a serial port: each burst of bytes is one card's number.
///
/// Lives on the main thread and starts none of its own; reading blocks it while a burst lasts and for 50 ms of
/// silence behind it. A port whose device goes away is closed and tried again now and then, without a word to
/// the user.
class SerialPort : public StaffDevice
{
    Q_OBJECT

public:
    explicit SerialPort(QObject* parent = nullptr);
    ~SerialPort() override;

    /// Opens the port that the settings name; without a name nothing happens.
    void startDevice() override;
    QString openPort() const override { return m_port->isOpen() ? m_portName : QString(); }
    /// Opens a port by the name that the settings have for it; nothing is said when that fails.
    bool open(const QString& portName);
    /// Whether this machine has a port of that name now.
    static bool isThere(const QString& portName);

protected:
    void run() override {}

private:
    void connectReading();
    void readData();
    void onError(QSerialPort::SerialPortError error);
    void closeLostPort();
    void reopenLostPort();
    void closeForGood();

    QString m_portName;
    QByteArray m_buffer;
    QSerialPort* m_port; ///< ours, let go with deleteLater: it may be on the stack below
    MyMessage* m_message;
    QMetaObject::Connection m_reading;
    QTimer* m_reopenTimer; ///< runs while the device is away
    bool m_isLossLogged = false;
};
