#pragma once

#include <QObject>

/// The types of the self entry's page.
class Module7Register : public QObject
{
    Q_OBJECT

public:
    void init();
};
