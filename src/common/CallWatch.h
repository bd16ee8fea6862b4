#pragma once

#include "common/Property.h"
#include "common/Singleton.h"

/// Whether the program waits for the back end, for whoever shows it. Main thread.
class CallWatch : public QObject, public Singleton<CallWatch>
{
    Q_OBJECT
    PROPERTY(bool, isWaiting, setIsWaiting, false)

private:
    friend class Singleton<CallWatch>;
    CallWatch() = default;
};
