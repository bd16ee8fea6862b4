#pragma once

#include "devices/VendorReader.h"

/// Driver of the reader models 7 and 8: the library's text is the card's.
class Sn_Sdk : public VendorReader
{
public:
    Sn_Sdk();
    ~Sn_Sdk() override { endPolling(); }

protected:
    bool prepare() override;
    bool readCard(QByteArray& raw, QString& text) override;

private:
    int (*m_TP_Configration)() = nullptr; ///< 1: ready
    int (*m_TP_BeepOk)() = nullptr;
    int (*m_TP_ReadCardSnr)(char* serial) = nullptr; ///< 1: a card was read
};
