#pragma once

#include "devices/VendorReader.h"

/// A reader whose library gives a card's serial as four bytes. Two makes differ in their library alone.
class RfReader : public VendorReader
{
public:
    ~RfReader() override { endPolling(); }

protected:
    explicit RfReader(const QString& library);

    /// Loads the library and binds both entry points.
    bool bindAll();

    bool readCard(QByteArray& raw, QString& text) override;

private:
    int (*m_ReadRFID)(unsigned char* serial) = nullptr; ///< 0: a card was read
    int (*m_RDSound)(int) = nullptr;
};
