#pragma once

#include "vm/shared/ActionVm.h"
#include "vm/shared/LyingCard.h"
#include "vm/shared/ReaderListener.h"

#include <QTimer>

/// The words of a counter's answers, large on its page.
struct CounterWords
{
    const char* taken;
    const char* again; ///< had it before
    const char* refused;
};

/// Base of the counters that guests work: takes cards from the reader or from the number prompt, and gives each
/// an answer that the page shows large and that goes by itself.
class CounterVm : public ActionVm
{
    Q_OBJECT
    PROPERTY(QString, answer, setAnswer, {}) // "taken", "again" or "refused"; empty without one
    PROPERTY(QString, answerWord, setAnswerWord, {})
    PROPERTY(QString, answerText, setAnswerText, {}) // whose it is and why

public:
    explicit CounterVm(const CounterWords& words, QObject* parent = nullptr);

    /// A card from the prompt: its number when it was typed, else its serial. One that still lies on the reader
    /// from its last time counts for nothing.
    Q_INVOKABLE void present(const QString& cardNo, const QString& rfid);
    Q_INVOKABLE void clearAnswer();

    void readingExec(QString text) override { present({}, text); }
    void readingHandExec(QString text) override { present({}, text); }

protected:
    /// What the counter does with a card. The page may be gone before it returns.
    virtual void take(const QString& cardNo, const QString& rfid) = 0;

    void showTaken(const QString& text) { show("taken", m_words.taken, text); }
    void showAgain(const QString& text) { show("again", m_words.again, text); }
    void showRefused(const QString& reason) { show("refused", m_words.refused, reason); }
    /// Of a change whose reply is no success; the back end tells by its text alone whether the guest was there
    /// before.
    void showRefusal(const ApiRes& reply);

    /// Whose answer it is, as the guest knows himself.
    static QString cardText(const QString& cardNo) { return QStringLiteral("手牌 %1").arg(cardNo); }

    ReaderListener m_reader{this};

private:
    void show(const char* kind, const char* word, const QString& text);

    const CounterWords m_words;
    LyingCard m_lying;
    QTimer m_answerEnd{this};
};
