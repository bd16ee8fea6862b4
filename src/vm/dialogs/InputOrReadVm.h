#pragma once

#include "vm/shared/ReadingVm.h"

/// Takes the staff card that ends an identity dialog.
class InputOrReadVm : public ReadingVm
{
    Q_OBJECT

public:
    /// Listens to the staff card reader until it is destroyed.
    explicit InputOrReadVm(QObject* parent = nullptr) : ReadingVm(parent) { m_reader.listenToStaff(); }

    void readingExec(QString cardId) override;

Q_SIGNALS:
    void successSignal(const QString& rfid);
};
