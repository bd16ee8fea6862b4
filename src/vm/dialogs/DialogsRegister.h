#pragma once

#include "common/Singleton.h"

#include <QObject>

/// Makes the shared dialogs' view-models known to the pages.
class DialogsRegister : public QObject, public Singleton<DialogsRegister>
{
    Q_OBJECT

public:
    void init();

private:
    friend class Singleton<DialogsRegister>;
    DialogsRegister() = default;
};
