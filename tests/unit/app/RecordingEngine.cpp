// A speech engine without a sound: each text takes a moment. It keeps in the application's property "heard"
// what was said to its end, and what was cut with a mark. The property "engine" tells when it shows that it is
// busy: "early", "late", or "stuck", when it comes to no end besides; one that is "broken" is in error, one
// that is "mute" has no voices.

#include <QCoreApplication>
#include <QTextToSpeechEngine>
#include <QTextToSpeechPlugin>
#include <QTimer>

class RecordingEngine : public QTextToSpeechEngine
{
    Q_OBJECT

public:
    RecordingEngine()
    {
        connect(&m_timer, &QTimer::timeout, this, &RecordingEngine::work);
        m_timer.start(3);
        qApp->setProperty("heard", QStringList());
        if (is("broken"))
            m_state = QTextToSpeech::BackendError;
    }

    void say(const QString& text) override
    {
        if (m_state != QTextToSpeech::Ready)
            stop();
        m_waiting.append(text);
        if (!is("late"))
            setState(QTextToSpeech::Speaking);
    }
    void stop() override
    {
        for (const QString& text : m_waiting)
            note("cut:" + text);
        m_waiting.clear();
        setState(QTextToSpeech::Ready);
    }
    void pause() override {}
    void resume() override {}
    QVector<QLocale> availableLocales() const override { return {QLocale("en_US"), QLocale("zh_CN")}; }
    QVector<QVoice> availableVoices() const override
    {
        if (is("mute"))
            return {};
        const QString of = m_locale.name();
        return {createVoice(of == "zh_CN" ? "Ting" : "Ann", QVoice::Female, QVoice::Adult, of),
                createVoice("Mei", QVoice::Female, QVoice::Adult, of)};
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
    static bool is(const char* kind) { return qApp->property("engine").toString() == kind; }
    static void note(const QString& text)
    {
        qApp->setProperty("heard", qApp->property("heard").toStringList() << text);
    }
    void work()
    {
        if (m_waiting.isEmpty() || is("stuck"))
            return;
        if (m_state == QTextToSpeech::Speaking)
            note(m_waiting.takeFirst());
        setState(m_waiting.isEmpty() ? QTextToSpeech::Ready : QTextToSpeech::Speaking);
    }
    void setState(QTextToSpeech::State state) { Q_EMIT stateChanged(m_state = state); }

    QTimer m_timer;
    QStringList m_waiting;
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
        return new RecordingEngine;
    }
};

#include "RecordingEngine.moc"
