#include "devices/ReaderStacks.h"

#include "common/BaseObject.h"

void ReaderStacks::push(Reader reader, BaseObject* listener)
{
    QMutexLocker lock(&m_mutex);
    m_stacks[reader].removeAll(listener);
    m_stacks[reader].append(listener);
}

void ReaderStacks::remove(Reader reader, BaseObject* listener)
{
    QMutexLocker lock(&m_mutex);
    m_stacks[reader].removeAll(listener);
}

void ReaderStacks::deliver(Reader reader, const QString& text)
{
    QPointer<BaseObject> top;
    {
        QMutexLocker lock(&m_mutex);
        Stack& stack = m_stacks[reader];
        stack.removeAll(nullptr); // a listener destroyed without a word must not swallow the readings
        if (!stack.isEmpty())
            top = stack.last();
    }
    if (!top)
        return;
    if (reader == Staff)
        top->readingExec(text);
    else
        top->readingHandExec(text);
}
