#pragma once

#include "common/BaseObject.h"
#include "vm/shared/ReaderListener.h"

/// Takes the staff card that ends an identity dialog.
class InputOrReadVm : public BaseObject
{
    Q_OBJECT

public:
    /// Listens to the staff card reader until it is destroyed.
    explicit InputOrReadVm(QObject* parent = nullptr) : BaseObject(parent) { m_reader.listenToStaff(); }

    void readingExec(QString cardId) override;

Q_SIGNALS:
    void successSignal(const QString& rfid);

private:
    ReaderListener m_reader{this};
};
