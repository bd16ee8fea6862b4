#pragma once

#include <QObject>

/// The types of the till's pages.
class Module2Register : public QObject
{
    Q_OBJECT

public:
    void init();
};
