#pragma once

#include "common/Property.h"
#include "common/Singleton.h"
#include "devices/ReaderStacks.h"

#include <QObject>
#include <QTimer>

class Baa00Service;
class BaseObject;
class GlobalConfig;
class HandCardDevice;
class KvsystemService;
class MqttClient;
class MyMessage;
class StaffDevice;
class Voice;

/// Application controller: start-up, settings access, the login keep-alive and the confirmations that
/// view-models ask for. Main thread.
class MainClass : public QObject, public Singleton<MainClass>
{
    Q_OBJECT
    PROPERTY(QString, startFailure, setStartFailure, {}) // why the start-up ended, empty while it runs
    PROPERTY(bool, isBrokerAway, setIsBrokerAway, false) // what others change doesn't arrive
    PROPERTY(int, voiceWaiting, setVoiceWaiting, 0)      // texts that are still to be spoken
    PROPERTY(QString, voiceFault, setVoiceFault, {})     // why none is heard, empty while they are

public:
    ~MainClass() override;

    /// Second half of the start-up, called by the waiting page once it stands. On a failure the page stays,
    /// with the cause shown, and may call it again.
    Q_INVOKABLE void init();
    /// The answer of the confirmation dialog: 1 yes, 0 no.
    Q_INVOKABLE void msgConfirmResult(int result);
    /// Keeps the session alive while a module is open.
    Q_INVOKABLE void startTimer();
    /// With the last module the voice falls silent too.
    Q_INVOKABLE void stopTimer();

    /// Asks the user and waits for the answer: 1 yes, 0 no. With a limit no answer within it is a no.
    int showMsgConfirm(const QString& title, const QString& msg, int limitMs = 0);

    /// A setting of this machine, empty when it isn't there.
    QString getSqlData(const QString& key);
    /// False when it could not be stored, which is shown.
    bool setSqlData(const QString& key, const QString& value);
    /// Copies the settings into the shared state; done once, at start-up.
    void initDb();

    /// Makes a view-model the one that the reader's next card goes to, and takes it off again. Not owned; it
    /// must take itself off before it ends.
    void startReadStaff(BaseObject* listener);
    void stopReadStaff(BaseObject* listener);
    void startReadHand(BaseObject* listener);
    void stopReadHand(BaseObject* listener);

    /// The staff reader's port while it is open, by the name that the settings have; whether a hand card reader
    /// is in use.
    QString staffPort() const;
    bool hasHandReader() const { return m_handDevice; }

    /// Gives the terminal a voice; done once, at start-up, when the settings want one.
    void initTts();
    /// Says a text so many times, after those that wait already.
    void ttsAddData(const QString& text, int count = 1);

    /// Opens the channel to the broker, in place of the one before; unless the parameters are kept, they are
    /// fetched again first, and when that fails everything stays as it is. Nothing is subscribed on a new one.
    void initMqtt(bool keepParameters);
    /// The topics to listen to, in place of those before.
    void setMqttTopics(const QList<QString>& topics);

    /// A module's view-model ends; waits that belong to it end with it.
    void onDestruct(const QString& code);

Q_SIGNALS:
    void msgConfirmSignal(const QString& title, const QString& msg, int limitMs);
    void msgConfirmDone();
    void destructSignal(const QString& code);
    /// What a reader gave and the card's text that came of it, before that goes to whoever listens.
    void staffReceived(const QByteArray& raw, const QString& text);
    void handReceived(const QByteArray& raw, const QString& text);
    /// A message on one of the wanted topics, which comes without the store id.
    void mqttSignal(const QString& topic, const QString& msg);
    /// The channel to the broker stands, for the first time or again: what was published before is lost.
    void mqttConnected();

private:
    friend class Singleton<MainClass>;
    MainClass();

    void initReaders();
    bool initSysConfig();
    bool failStart(const QString& cause);
    bool fetchLines();
    void chooseLine();
    bool fetchSysInit();
    bool fetchMqttInfo();
    void onMqttMessage(const QString& topic, const QString& msg);

    MyMessage* m_message;
    GlobalConfig* m_config;
    StaffDevice* m_staffDevice = nullptr;
    HandCardDevice* m_handDevice = nullptr; ///< null while no hand card reader is in use
    ReaderStacks m_readers;
    MqttClient* m_mqttClient = nullptr; ///< a child; null until the start-up has made it
    QTimer* m_keepLoginTimer;
    Voice* m_voice; ///< a child
    Baa00Service* m_baa00;
    KvsystemService* m_kvsystem;
    int m_msgConfirmResult = -1;
};
