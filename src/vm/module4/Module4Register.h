#pragma once

#include <QObject>

/// The types of the call queue's pages.
class Module4Register : public QObject
{
    Q_OBJECT

public:
    void init();
};
