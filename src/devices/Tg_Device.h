#pragma once

#include "devices/VendorReader.h"

#include <atomic>

/// Driver of the reader models 4 and 5: a text of one leading character and twelve digits, or their last eight
/// with the bytes turned round, as the settings say.
class Tg_Device : public VendorReader
{
public:
    Tg_Device();
    ~Tg_Device() override;

    void startDevice(int) override;
    /// The card's text in what the library gave; empty when that is too short for one.
    static QString cardText(const QByteArray& answer, bool isEightDigits);

protected:
    bool readCard(QByteArray& raw, QString& text) override;
    void finish() override;

private:
    std::atomic<bool> m_isEightDigits{false};

    int (*m_FindCk)() = nullptr; ///< 0: no reader
    void (*m_CloseCK)() = nullptr;
    const char* (*m_ReadOnLine)() = nullptr; ///< the library's own text, short without a card
    int (*m_SetReaderVoice)(int, int) = nullptr;
    void (*m_EndforRecv)() = nullptr;
};
