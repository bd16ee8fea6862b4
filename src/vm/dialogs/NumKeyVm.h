#pragma once

#include "vm/shared/ReadingVm.h"

/// Takes the card that ends a number dialog.
class NumKeyVm : public ReadingVm
{
    Q_OBJECT

public:
    explicit NumKeyVm(QObject* parent = nullptr) : ReadingVm(parent) {}

    /// Listens until it is destroyed: with readType 1, and a hand card reader in use, to that reader; else to
    /// the staff reader. Not at all when isReading is false.
    Q_INVOKABLE void init(bool isReading, int readType);

    void readingExec(QString cardId) override;
    void readingHandExec(QString cardId) override;

Q_SIGNALS:
    void successSignal(const QString& rfid);
};
