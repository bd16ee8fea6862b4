#include "devices/Sn_Sdk.h"

#include <QDebug>

Sn_Sdk::Sn_Sdk() : VendorReader(QStringLiteral("SnMakeCard.dll"), QStringLiteral("加载%1!\n"))
{
    finishLoading(load() && bind(m_TP_Configration, "TP_Configration") && bind(m_TP_BeepOk, "TP_BeepOk") &&
                      bind(m_TP_ReadCardSnr, "TP_ReadCardSnr"),
                  QStringLiteral("加载动态链接库SnMakeCard.dll 成功"));
}

bool Sn_Sdk::prepare() { return m_TP_Configration() == 1; }

bool Sn_Sdk::readCard(QByteArray& raw, QString& text)
{
    char serial[1024] = {}; // the library doesn't ask how much fits
    if (m_TP_ReadCardSnr(serial) != 1)
        return false;
    m_TP_BeepOk();
    raw = QByteArray(serial, static_cast<int>(qstrnlen(serial, sizeof serial)));
    text = QString::fromUtf8(raw);
    qDebug().noquote() << text;
    return true;
}
