#pragma once

#include "vm/shared/ActionVm.h"
#include "vm/shared/ReaderListener.h"

/// Base of the dialogs' view-models that take cards. A dialog takes them as long as it is on the screen: it
/// tells when it has closed, which is earlier than the view-model's end.
class ReadingVm : public ActionVm
{
    Q_OBJECT

public:
    Q_INVOKABLE void stopReading() { m_reader.end(); }

protected:
    using ActionVm::ActionVm;

    ReaderListener m_reader{this};
};
