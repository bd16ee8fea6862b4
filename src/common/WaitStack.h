#pragma once

#include <QVector>

/// The nested waits of the main thread, the innermost on top: back-end calls, which drop the user's input, and
/// dialogs, which need it. A wait may only drop input while it is the innermost, or a dialog that opens during
/// a call could never be closed. Main thread.
class WaitStack
{
public:
    /// Stands on the stack for the life of a scope.
    class Entry
    {
    public:
        explicit Entry(const void* wait) { waits().append(wait); }
        Entry(const Entry&) = delete;
        Entry& operator=(const Entry&) = delete;
        ~Entry() { waits().removeLast(); }
    };

    static bool isEmpty() { return waits().isEmpty(); }
    static bool isInnermost(const void* wait) { return !waits().isEmpty() && waits().last() == wait; }

private:
    static QVector<const void*>& waits()
    {
        static QVector<const void*> stack;
        return stack;
    }
};
