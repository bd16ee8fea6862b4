#pragma once

#include <QMutex>

#include <atomic>

/// Gives a class its one instance: made on first use, from whatever thread, and kept to the end of the process.
template <typename T>
class Singleton
{
public:
    static T* getInstance()
    {
        static QMutex mutex;
        static std::atomic<T*> instance{nullptr};
        T* known = instance.load(std::memory_order_acquire);
        if (!known) {
            QMutexLocker lock(&mutex);
            known = instance.load(std::memory_order_relaxed);
            if (!known) {
                known = new T;
                instance.store(known, std::memory_order_release);
            }
        }
        return known;
    }

protected:
    Singleton() = default;
    ~Singleton() = default;
};
