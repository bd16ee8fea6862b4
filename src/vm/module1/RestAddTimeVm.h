#pragma once

#include "common/Property.h"

/// Gives a rest room in use more hours.
class RestAddTimeVm : public QObject
{
    Q_OBJECT
    PROPERTY(bool, isEnabled, setIsEnabled, true) // false while it saves
    PROPERTY(int, hours, setHours, 1)             // to be added

public:
    explicit RestAddTimeVm(QObject* parent = nullptr) : QObject(parent) {}

    Q_INVOKABLE void init(const QString& roomId) { m_roomId = roomId; }
    Q_INVOKABLE bool save();

private:
    QString m_roomId;
};
