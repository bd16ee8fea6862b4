#pragma once

#include <QObject>

/// Base of the view-models that take card reads. Both readings arrive on the main thread, and only while the
/// object stands on top of that reader's listeners; it takes itself off them in its destructor.
class BaseObject : public QObject
{
    Q_OBJECT

public:
    explicit BaseObject(QObject* parent = nullptr) : QObject(parent) {}

    /// The raw serial of a card, as the staff reader gave it.
    virtual void readingExec(QString) {}
    /// The raw serial of a card, as the hand card reader gave it.
    virtual void readingHandExec(QString) {}
};
