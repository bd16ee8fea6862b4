#pragma once

#include <QObject>

/// The types of the buffet's page.
class Module8Register : public QObject
{
    Q_OBJECT

public:
    void init();
};
