#pragma once

#include <QEventLoop>
#include <QThread>

#include <memory>

/// Runs what may take seconds on a thread of its own and returns once it has ended, while the screen goes on.
/// The caller may be gone then. Main thread.
template <typename Work>
void runBeside(Work work)
{
    QEventLoop loop;
    const std::unique_ptr<QThread> thread(QThread::create(work));
    QObject::connect(thread.get(), &QThread::finished, &loop, &QEventLoop::quit);
    thread->start();
    loop.exec();
    thread->wait();
}
