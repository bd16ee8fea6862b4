#pragma once

#include <QObject>

/// The types of the pages of the service that begins with the timer.
class Module6Register : public QObject
{
    Q_OBJECT

public:
    void init();
};
