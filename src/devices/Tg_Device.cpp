#include "devices/Tg_Device.h"

#include "common/Settings.h"

Tg_Device::Tg_Device() : VendorReader(QStringLiteral("port_dll.dll"), QStringLiteral("加载%1失败!\n"))
{
    finishLoading(load() && bind(m_FindCk, "FindCk") && bind(m_CloseCK, "CloseCK") &&
                  bind(m_ReadOnLine, "ReadOnLine") && bind(m_SetReaderVoice, "SetReaderVoice") &&
                  bind(m_EndforRecv, "EndforRecv") &&
                  (m_FindCk() != 0 || fail(QStringLiteral("【泰格】初始化读卡器失败,将不能正确读卡"))));
}

Tg_Device::~Tg_Device()
{
    if (endPolling())
        m_CloseCK();
}

void Tg_Device::startDevice(int argument)
{
    if (!getInitStatus())
        return;
    if (Settings::isOn(QStringLiteral("is_rfid_8")))
        m_isEightDigits = true;
    VendorReader::startDevice(argument);
}

QString Tg_Device::cardText(const QByteArray& answer, bool isEightDigits)
{
    constexpr int serialStart = 1;
    constexpr int serialLength = 12;
    if (answer.size() < serialStart + serialLength)
        return {};
    const QString serial = QString::fromLatin1(answer.mid(serialStart, serialLength));
    return isEightDigits ? serial.mid(10, 2) + serial.mid(8, 2) + serial.mid(6, 2) + serial.mid(4, 2) : serial;
}

bool Tg_Device::readCard(QByteArray& raw, QString& text)
{
    raw = m_ReadOnLine();
    text = cardText(raw, m_isEightDigits);
    if (text.isEmpty())
        return false;
    m_SetReaderVoice(1, 1);
    return true;
}

void Tg_Device::finish() { m_EndforRecv(); }
