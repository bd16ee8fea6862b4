#include "devices/ReaderStacks.h"

#include "common/BaseObject.h"
#include "common/Clock.h"

namespace {

/// Readers repeat what lies on them faster than that, and nobody lifts a card and presents it again within it.
constexpr qint64 stayMs = 1000;

} // namespace

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
    if (isTakenByAnother(reader, text, top) || !top)
        return;
    if (reader == Staff)
        top->readingExec(text);
    else
        top->readingHandExec(text);
}

/// Whether the card still lies there since another listener took it; if not, this one has it now.
bool ReaderStacks::isTakenByAnother(Reader reader, const QString& text, BaseObject* listener)
{
    Card& card = m_cards[reader];
    const qint64 now = Clock::nowMs();
    if (card.text != text || qAbs(now - card.toldAtMs) >= stayMs)
        card = Card{text, now, false, nullptr};
    card.toldAtMs = now;
    if (card.isTaken)
        return !listener || card.taker != listener;
    card.isTaken = listener != nullptr;
    card.taker = listener;
    return false;
}
