#pragma once

#include "vm/module1/ChgRoomVm.h"

/// Moves a massage room in use to an empty room.
class MassChgRoomVm : public ChgRoomVm
{
    Q_OBJECT

public:
    explicit MassChgRoomVm(QObject* parent = nullptr) : ChgRoomVm(parent) {}

    Q_INVOKABLE bool save();
};
