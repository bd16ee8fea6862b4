#pragma once

#include <QList>
#include <QMutex>
#include <QPointer>

class BaseObject;

/// Who listens to the two card readers. Each reading goes to the one listener that registered last with that
/// reader; nothing is queued. Main thread, which alone calls the listeners; they are not owned.
class ReaderStacks
{
public:
    enum Reader { Staff, Hand };

    /// Puts the listener on top, also when it stands there already.
    void push(Reader reader, BaseObject* listener);
    /// Takes the listener off, wherever it stands; does nothing when it doesn't.
    void remove(Reader reader, BaseObject* listener);
    /// Hands the text to the top listener, which stays registered. It may register, remove and destroy
    /// listeners, itself included. Without a listener the text is dropped.
    void deliver(Reader reader, const QString& text);

private:
    using Stack = QList<QPointer<BaseObject>>;

    QMutex m_mutex; ///< guards the lists, never held while a listener is called
    Stack m_stacks[2];
};
