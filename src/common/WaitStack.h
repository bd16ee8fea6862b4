#pragma once

#include <QVector>

/// The nested waits of the main thread, the innermost on top: back-end calls, which drop the user's input, and
/// dialogs, which need it. A wait may only drop input while it is the innermost, or a dialog that opens during
/// a call could never be closed. Main thread.
class WaitStack
{
public:
    enum Kind { Call, Dialog };

    /// Stands on the stack for the life of a scope.
    class Entry
    {
    public:
        explicit Entry(const void* wait, Kind kind = Call) : m_kind(kind)
        {
            waits().append(wait);
            noteChange();
        }
        Entry(const Entry&) = delete;
        Entry& operator=(const Entry&) = delete;
        ~Entry()
        {
            waits().removeLast();
            noteChange();
        }

    private:
        void noteChange() const { changes() += m_kind == Dialog ? 1 : 0; }

        const Kind m_kind;
    };

    static bool isEmpty() { return waits().isEmpty(); }
    static bool isInnermost(const void* wait) { return !waits().isEmpty() && waits().last() == wait; }
    /// How often a dialog has opened or closed so far: whether the screen is still what a finger aimed at.
    static int dialogChanges() { return changes(); }

private:
    static int& changes()
    {
        static int count = 0;
        return count;
    }
    static QVector<const void*>& waits()
    {
        static QVector<const void*> stack;
        return stack;
    }
};
