#include "platform/SerialPortName.h"

#include <QFileInfo>

QString serialPortName(const QString& name, const QString& deviceFolder)
{
#ifdef Q_OS_WIN
    Q_UNUSED(deviceFolder)
    return name;
#else
    const QString prefix = QStringLiteral("COM");
    const int number = name.startsWith(prefix) ? name.midRef(prefix.size()).toInt() : 0;
    if (number < 1)
        return name;
    const QString named = qEnvironmentVariable(qPrintable(QStringLiteral("KV_PANEL_COM%1").arg(number)));
    if (!named.isEmpty())
        return named;
    const QString link = QStringLiteral("%1/kv-com%2").arg(deviceFolder).arg(number);
    if (QFileInfo::exists(link))
        return link;
    return QStringLiteral("%1/ttyS%2").arg(deviceFolder).arg(number - 1);
#endif
}
