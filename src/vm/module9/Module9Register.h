#pragma once

#include <QObject>

/// The types of the transfer's pages.
class Module9Register : public QObject
{
    Q_OBJECT

public:
    void init();
};
