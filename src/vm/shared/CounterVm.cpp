#include "vm/shared/CounterVm.h"

#include "vm/shared/Texts.h"

namespace {

constexpr int answerMs = 6000;

/// Of a change that may have been made all the same.
QString unansweredText() { return QStringLiteral("没有收到答复，可能已经录入，请到前台核对"); }

bool tellsOfEarlier(const QString& text)
{
    for (const char* word : {"已用", "已就餐", "已录入", "已使用", "已领"}) {
        if (text.contains(QString::fromUtf8(word)))
            return true;
    }
    return false;
}

} // namespace

CounterVm::CounterVm(const CounterWords& words, QObject* parent) : ActionVm(parent), m_words(words)
{
    m_answerEnd.setSingleShot(true);
    m_answerEnd.setInterval(answerMs);
    m_answerEnd.setObjectName(QStringLiteral("answerTimer"));
    connect(&m_answerEnd, &QTimer::timeout, this, &CounterVm::clearAnswer);
}

void CounterVm::present(const QString& cardNo, const QString& rfid)
{
    // One that comes during an entry isn't noted either: it counts once it can be taken.
    if (!isEnabled() || (!rfid.isEmpty() && !m_lying.isNew(rfid)))
        return;
    const QPointer<CounterVm> self(this);
    clearAnswer();
    take(cardNo, rfid);
    if (self && !rfid.isEmpty())
        m_lying.see(rfid);
}

void CounterVm::clearAnswer()
{
    m_answerEnd.stop();
    setAnswer({});
}

void CounterVm::showRefusal(const ApiRes& reply)
{
    if (!isAnswered(reply))
        showRefused(unansweredText());
    else if (tellsOfEarlier(reply.msg()))
        showAgain(reply.msg());
    else
        showRefused(reply.msg());
}

void CounterVm::show(const char* kind, const char* word, const QString& text)
{
    setAnswerWord(QString::fromUtf8(word));
    setAnswerText(text.isEmpty() ? QStringLiteral("请求失败") : shownText(text));
    setAnswer(QString::fromLatin1(kind));
    m_answerEnd.start();
}
