#pragma once

#include <QList>
#include <QMutex>
#include <QPointer>

class BaseObject;

/// Who listens to the two card readers. Each reading goes to the one listener that registered last with that
/// reader; nothing is queued. A card that stays on the reader is told of again and again: what one listener has
/// taken isn't handed to another one before it was lifted. Main thread, which alone calls the listeners; they
/// are not owned.
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

    /// The card that a reader told of last.
    struct Card
    {
        QString text;
        qint64 toldAtMs = 0;
        bool isTaken = false;
        QPointer<BaseObject> taker; ///< null as well when he has gone
    };

    bool isTakenByAnother(Reader reader, const QString& text, BaseObject* listener);

    QMutex m_mutex; ///< guards the lists, never held while a listener is called
    Stack m_stacks[2];
    Card m_cards[2];
};
