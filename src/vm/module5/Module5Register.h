#pragma once

#include <QObject>

/// The types of the settings' page.
class Module5Register : public QObject
{
    Q_OBJECT

public:
    void init();
};
