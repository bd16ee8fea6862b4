#pragma once

#include "common/WaitStack.h"

#include <QEventLoop>
#include <QObject>

/// Lets a page's function wait for its dialog: execLoop() returns once finish() or finishedSlot() was called.
/// Input is not filtered, the dialog stays usable. A child element of the dialog.
class QmlEventLoop : public QObject
{
    Q_OBJECT

public:
    explicit QmlEventLoop(QObject* parent = nullptr) : QObject(parent) {}
    /// A dialog that goes away ends its wait.
    ~QmlEventLoop() override { finish(); }

    Q_INVOKABLE void execLoop()
    {
        const WaitStack::Entry entry(this, WaitStack::Dialog);
        QEventLoop loop;
        connect(this, &QmlEventLoop::finished, &loop, &QEventLoop::quit);
        loop.exec();
    }
    Q_INVOKABLE void finish() { Q_EMIT finished(); }

public Q_SLOTS:
    void finishedSlot() { finish(); }

Q_SIGNALS:
    void finished();
};
