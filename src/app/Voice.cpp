#include "app/Voice.h"

#include "common/Settings.h"
#include "platform/SpeechEngine.h"

#include <QDebug>
#include <QTextToSpeech>

namespace {

constexpr int feedMs = 1000;
/// No text takes so long to say. An engine whose service has died stays busy.
constexpr int patienceMs = 30000;
/// With more than these the calls are too old to be of use.
constexpr int mostWaiting = 100;

} // namespace

Voice::Voice(QObject* parent) : QObject(parent), m_timer(new QTimer(this)), m_patience(new QTimer(this))
{
    m_patience->setObjectName(QStringLiteral("patience"));
    m_patience->setSingleShot(true);
    connect(m_patience, &QTimer::timeout, this, [this] {
        qDebug() << "The speech engine comes to no end and is replaced";
        m_engine->deleteLater();
        makeEngine();
    });
}

QString Voice::label(const QLocale& locale)
{
    return QStringLiteral("%1 (%2)").arg(locale.nativeLanguageName(), locale.nativeCountryName());
}

void Voice::init()
{
    qDebug() << "STEP 1";
    if (!QTextToSpeech::availableEngines().contains(speechEngineName())) {
        qDebug().noquote() << QStringLiteral("初始化tts失败将无法使用tts");
        setFault(QStringLiteral("本机没有语音引擎"));
        return;
    }
    makeEngine();
    qDebug() << "STEP 8";
    connect(m_timer, &QTimer::timeout, this, &Voice::feed);
}

void Voice::makeEngine()
{
    qDebug() << "STEP 2";
    m_engine = new QTextToSpeech(speechEngineName(), this);
    qDebug() << "STEP 3";
    m_engine->setVolume(1.0);
    qDebug() << "STEP 4";
    m_timer->setInterval(feedMs);
    qDebug() << "STEP 5";
    m_timer->start();
    applySettings();
    connect(m_engine, &QTextToSpeech::stateChanged, this, &Voice::updateFault);
    updateFault();
}

void Voice::updateFault()
{
    if (m_engine->state() == QTextToSpeech::BackendError)
        setFault(QStringLiteral("语音引擎出错"));
    else if (m_engine->availableVoices().isEmpty())
        setFault(QStringLiteral("语音引擎没有发音人"));
    else
        setFault({});
}

void Voice::applySettings()
{
    const QString language = Settings::text(QStringLiteral("tts_language"));
    const QString name = Settings::text(QStringLiteral("tts_voice"));
    m_engine->setRate(Settings::text(QStringLiteral("tts_speed")).toDouble());
    qDebug() << "STEP 6";
    for (const QLocale& locale : m_engine->availableLocales()) {
        if (label(locale) == language) {
            m_engine->setLocale(locale);
            break;
        }
    }
    qDebug() << "STEP 7";
    // Those of the locale that was just set.
    for (const QVoice& voice : m_engine->availableVoices()) {
        if (voice.name() == name) {
            m_engine->setVoice(voice);
            break;
        }
    }
}

void Voice::add(const QString& text, int count)
{
    {
        QMutexLocker lock(&m_mutex);
        // Without an engine nobody takes them off.
        if (!m_engine && m_queue.size() > mostWaiting)
            m_queue.clear();
        m_queue.append({count, text});
    }
    updateWaiting();
}

void Voice::updateWaiting()
{
    int waiting = 0;
    {
        QMutexLocker lock(&m_mutex);
        waiting = m_queue.size();
    }
    setWaiting(waiting);
}

void Voice::silence()
{
    {
        QMutexLocker lock(&m_mutex);
        m_queue.clear();
    }
    updateWaiting();
    if (m_engine)
        m_engine->stop();
}

/// Some engines are busy as soon as they have a text, others take several before they show it.
void Voice::feed()
{
    m_timer->stop();
    {
        QMutexLocker lock(&m_mutex);
        if (m_queue.size() > mostWaiting)
            m_queue.clear();
    }
    if (m_engine->state() == QTextToSpeech::Ready) {
        m_patience->stop();
        m_handed = 0;
    } else if (!m_patience->isActive()) {
        m_patience->start(patienceMs * qMax(1, m_handed));
    }
    QString text;
    for (; m_engine->state() == QTextToSpeech::Ready && takeNext(text); ++m_handed)
        m_engine->say(text);
    updateWaiting();
    m_timer->start();
}

bool Voice::takeNext(QString& text)
{
    QMutexLocker lock(&m_mutex);
    while (!m_queue.isEmpty() && m_queue.first().count <= 0)
        m_queue.removeFirst();
    if (m_queue.isEmpty())
        return false;
    text = m_queue.first().text;
    if (--m_queue.first().count == 0)
        m_queue.removeFirst();
    return true;
}
