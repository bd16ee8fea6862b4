// A speech engine without a sound. It says each text in a moment and keeps what was said and what was cut; the
// property "lateBusy" of the application tells whether it shows at once or only later that it is busy.

#include <QCoreApplication>
#include <QTextToSpeechEngine>
#include <QTextToSpeechPlugin>
#include <QTimer>

class RecordingEngine : public QTextToSpeechEngine
{
    Q_OBJECT
    Q_PROPERTY(QStringList said MEMBER m_said)
    Q_PROPERTY(QStringList cut MEMBER m_cut)
    Q_PROPERTY(bool isMute MEMBER m_isMute) // never gets to an end
    Q_PROPERTY(QString manner READ manner)

public:
    explicit RecordingEngine(QObject* parent) : QTextToSpeechEngine(parent)
    {
        setObjectName(QStringLiteral("recordingEngine"));
        connect(&m_timer, &QTimer::timeout, this, &RecordingEngine::work);
        m_timer.start(3);
    }

    void say(const QString& text) override
    {
        if (m_state != QTextToSpeech::Ready)
            stop();
        m_waiting.append(text);
        if (!qApp->property("lateBusy").toBool())
            setState(QTextToSpeech::Speaking);
    }
    void stop() override
    {
        m_cut += m_waiting;
        m_waiting.clear();
        setState(QTextToSpeech::Ready);
    }
    void pause() override {}
    void resume() override {}

    QVector<QLocale> availableLocales() const override { return {QLocale("en_US"), QLocale("zh_CN")}; }
    QVector<QVoice> availableVoices() const override
    {
        const QString names =
            m_locale == QLocale("zh_CN") ? QStringLiteral("Ting Mei") : QStringLiteral("Ann Mei");
        QVector<QVoice> voices;
        for (const QString& name : names.split(' '))
            voices.append(createVoice(name, QVoice::Female, QVoice::Adult, m_locale.name()));
        return voices;
    }
    QString manner() const
    {
        const QString voice = m_voice.name() + voiceData(m_voice).toString();
        return QStringLiteral("%1 %2 %3 %4").arg(m_rate).arg(m_volume).arg(m_locale.name(), voice);
    }
    double rate() const override { return m_rate; }
    bool setRate(double rate) override { return m_rate = rate, true; }
    double pitch() const override { return 0; }
    bool setPitch(double) override { return true; }
    QLocale locale() const override { return m_locale; }
    bool setLocale(const QLocale& locale) override { return m_locale = locale, true; }
    double volume() const override { return m_volume; }
    bool setVolume(double volume) override { return m_volume = volume, true; }
    QVoice voice() const override { return m_voice; }
    bool setVoice(const QVoice& voice) override { return m_voice = voice, true; }
    QTextToSpeech::State state() const override { return m_state; }

private:
    void work()
    {
        if (m_waiting.isEmpty() || m_isMute)
            return;
        if (m_state == QTextToSpeech::Ready) {
            setState(QTextToSpeech::Speaking);
            return;
        }
        m_said.append(m_waiting.takeFirst());
        if (m_waiting.isEmpty())
            setState(QTextToSpeech::Ready);
    }
    void setState(QTextToSpeech::State state)
    {
        if (m_state == state)
            return;
        m_state = state;
        Q_EMIT stateChanged(state);
    }

    QTimer m_timer;
    QStringList m_waiting, m_said, m_cut;
    bool m_isMute = false;
    QTextToSpeech::State m_state = QTextToSpeech::Ready;
    double m_rate = -9, m_volume = 0;
    QLocale m_locale{"en_US"};
    QVoice m_voice;
};

class RecordingPlugin : public QObject, public QTextToSpeechPlugin
{
    Q_OBJECT
    Q_INTERFACES(QTextToSpeechPlugin)
    Q_PLUGIN_METADATA(IID "org.qt-project.qt.speech.tts.plugin/5.0" FILE "RecordingEngine.json")

public:
    QTextToSpeechEngine* createTextToSpeechEngine(const QVariantMap&, QObject*, QString*) const override
    {
        return new RecordingEngine(qApp);
    }
};

#include "RecordingEngine.moc"
