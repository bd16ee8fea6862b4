#pragma once

#include <QObject>

/// The types of the pages of the technician's clock.
class Module3Register : public QObject
{
    Q_OBJECT

public:
    void init();
};
