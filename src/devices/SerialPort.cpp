#include "devices/SerialPort.h"

#include "common/MyMessage.h"
#include "common/Settings.h"
#include "platform/SerialPortName.h"

#include <QCoreApplication>
#include <QDebug>
#include <QFileInfo>
#ifdef Q_OS_WIN
#include <QSerialPortInfo>

#include <algorithm>
#endif

namespace {

constexpr int burstSilenceMs = 50;
constexpr int reopenIntervalMs = 5000;

/// The number in a burst, padded or cut to its width; empty when there is none.
QString cardNumber(const QByteArray& burst)
{
    QString text = QString::fromUtf8(burst.constData()); // up to the first NUL
    qDebug().noquote() << text;
    const QString ignored[] = {QStringLiteral("\\r\\n"), QStringLiteral("\\u0003"), QStringLiteral("\\u0004"),
                               QStringLiteral("\r\n"),   QStringLiteral("\x03"),    QStringLiteral("\x04")};
    for (const QString& control : ignored)
        text.remove(control);
    if (text.isEmpty())
        return {};
    const QString padding = QStringLiteral("00000000");
    return (padding + text).right(padding.size());
}

} // namespace

SerialPort::SerialPort(QObject* parent)
    : StaffDevice(parent), m_port(new QSerialPort), m_message(MyMessage::getInstance()),
      m_reopenTimer(new QTimer(this))
{
    m_port->setBaudRate(QSerialPort::Baud9600, QSerialPort::AllDirections);
    m_port->setDataBits(QSerialPort::Data8);
    m_port->setParity(QSerialPort::NoParity);
    m_port->setStopBits(QSerialPort::OneStop);
    m_port->setFlowControl(QSerialPort::NoFlowControl);
    connectReading();
    connect(m_port, &QSerialPort::errorOccurred, this, &SerialPort::onError);

    m_reopenTimer->setObjectName(QStringLiteral("reopen"));
    m_reopenTimer->setInterval(reopenIntervalMs);
    connect(m_reopenTimer, &QTimer::timeout, this, &SerialPort::reopenLostPort);
    // The reader lives as long as the process. An open port would stay locked against the next one.
    connect(QCoreApplication::instance(), &QCoreApplication::aboutToQuit, this, &SerialPort::closeForGood);
}

SerialPort::~SerialPort()
{
    m_port->disconnect(this);
    if (m_port->isOpen())
        m_port->close();
    m_port->deleteLater();
}

void SerialPort::startDevice()
{
    const QString portName = Settings::read(QStringLiteral("staff_device_com"));
    if (portName.isEmpty())
        return;
    if (open(portName))
        qDebug().noquote() << QStringLiteral("串口打开成功");
    else
        m_message->showError(QStringLiteral("串口打开失败"));
}

bool SerialPort::open(const QString& portName)
{
    m_portName = portName;
    m_port->setPortName(serialPortName(portName));
    return m_port->open(QIODevice::ReadOnly);
}

bool SerialPort::isThere(const QString& portName)
{
#ifdef Q_OS_WIN
    const QList<QSerialPortInfo> ports = QSerialPortInfo::availablePorts();
    return std::any_of(ports.begin(), ports.end(),
                       [&](const QSerialPortInfo& port) { return port.portName() == portName; });
#else
    return QFileInfo::exists(serialPortName(portName));
#endif
}

/// Queued, because the port tells of no further bytes before the call about the first ones has returned, and
/// a listener may sit in a dialog that waits for the next card.
void SerialPort::connectReading()
{
    m_reading = connect(m_port, &QSerialPort::readyRead, this, &SerialPort::readData, Qt::QueuedConnection);
}

void SerialPort::readData()
{
    if (m_port->bytesAvailable() == 0)
        return; // went along with an earlier burst, or away with the device
    disconnect(m_reading);
    while (m_port->waitForReadyRead(burstSilenceMs)) {
    }
    connectReading();
    m_buffer.append(m_port->readAll());
    const QByteArray burst = m_buffer;
    m_buffer.clear();

    const QString number = cardNumber(burst);
    Q_EMIT received(burst, number);
    if (number.isEmpty())
        return;
    qDebug().noquote() << number;
    m_isLossLogged = false;
    Q_EMIT sendData(number);
}

void SerialPort::onError(QSerialPort::SerialPortError error)
{
    if (error == QSerialPort::NoError || error == QSerialPort::TimeoutError || !m_port->isOpen())
        return;
    // Not at once: the port is in the midst of its work, and what it holds is still to be read.
    QMetaObject::invokeMethod(this, &SerialPort::closeLostPort, Qt::QueuedConnection);
}

/// A port left open without its device reports the same error without end.
void SerialPort::closeLostPort()
{
    if (!m_port->isOpen())
        return;
    if (!m_isLossLogged)
        qDebug().noquote() << QStringLiteral("串口已断开");
    m_isLossLogged = true; // until the next card, so that a port that comes and goes doesn't fill the log
    m_port->close();
    m_reopenTimer->start();
}

void SerialPort::reopenLostPort()
{
    if (m_port->open(QIODevice::ReadOnly))
        m_reopenTimer->stop();
}

void SerialPort::closeForGood()
{
    m_reopenTimer->stop();
    if (m_port->isOpen())
        m_port->close();
}
