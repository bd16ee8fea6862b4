#pragma once

#include <QObject>

/// The types of the room module's pages.
class Module1Register : public QObject
{
    Q_OBJECT

public:
    void init();
};
