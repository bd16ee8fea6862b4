#pragma once

#include <QObject>

/// The confirmation dialog's; it needs nothing but its texts.
class MsgConfirmVm : public QObject
{
    Q_OBJECT

public:
    explicit MsgConfirmVm(QObject* parent = nullptr) : QObject(parent) {}
};
