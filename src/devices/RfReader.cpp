#include "devices/RfReader.h"

#include <QDebug>

RfReader::RfReader(const QString& library) : VendorReader(library, QStringLiteral("加载%1!\n")) {}

bool RfReader::bindAll() { return load() && bind(m_ReadRFID, "ReadRFID") && bind(m_RDSound, "RDSound"); }

bool RfReader::readCard(QByteArray& raw, QString& text)
{
    unsigned char serial[4] = {};
    if (m_ReadRFID(serial) != 0)
        return false;
    m_RDSound(1);
    raw = QByteArray(reinterpret_cast<const char*>(serial), sizeof serial);
    text = QString::fromLatin1(raw.toHex().toUpper());
    qDebug().noquote() << text;
    return true;
}
