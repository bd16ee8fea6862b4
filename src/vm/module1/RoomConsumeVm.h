#pragma once

#include "common/Property.h"
#include "vm/module1/RoomConsumeModel.h"

/// What was consumed in a room, read once.
class RoomConsumeVm : public QObject
{
    Q_OBJECT
    CONSTANT_PROPERTY(RoomConsumeModel*, pRoomConsumeModel, m_lines)

public:
    explicit RoomConsumeVm(QObject* parent = nullptr);

    /// A refusal is shown and leaves the list as it is.
    Q_INVOKABLE void init(const QString& roomId);

private:
    RoomConsumeModel* m_lines;
};
