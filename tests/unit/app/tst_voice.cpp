#include "app/MainClass.h"
#include "app/Voice.h"
#include "common/Settings.h"
#include "common/Sqlite.h"

#include <QDir>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTextToSpeech>
#include <QtTest>

class tst_voice : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void cleanupTestCase() { QDir::setCurrent(QDir::rootPath()); }

    void settings_data();
    void settings();
    void everyTextToItsEnd_data();
    void everyTextToItsEnd();
    void silencedInTheMiddle_data() { everyTextToItsEnd_data(); }
    void silencedInTheMiddle();
    void whyNothingIsHeard_data();
    void whyNothingIsHeard();
    void stuckEngineIsReplaced();
    void tooManyAreDropped();
    void leavingTheModuleSilences();

private:
    /// The engine shows that it is busy "early" or "late".
    static void start(Voice& voice, const char* engine)
    {
        qApp->setProperty("engine", engine);
        voice.init();
        voice.findChild<QTimer*>()->setInterval(2);
    }
    static QStringList heard() { return qApp->property("heard").toStringList(); }

    QTemporaryDir m_folder;
};

void tst_voice::initTestCase()
{
    QVERIFY(QDir::setCurrent(m_folder.path()));
    Sqlite table;
    QVERIFY(table.open() && table.createTable());
}

void tst_voice::settings_data()
{
    QTest::addColumn<QStringList>("stored"); // language, voice, speed
    QTest::addColumn<QStringList>("spoken"); // locale, voice, rate
    const QString chinese = QStringLiteral("简体中文 (中国)");
    // clang-format off
    QTest::newRow("none") << QStringList{"", "", ""} << QStringList{"en_US", "Default", "0"};
    QTest::newRow("all") << QStringList{chinese, "Ting", "-10"} << QStringList{"zh_CN", "Ting", "-10"};
    QTest::newRow("voice of another language")
        << QStringList{"Klingon ()", "Ting", "3"} << QStringList{"en_US", "Default", "3"};
}

void tst_voice::settings()
{
    QFETCH(QStringList, stored);
    QFETCH(QStringList, spoken);
    QVERIFY(Settings::write("tts_language", stored[0]) && Settings::write("tts_voice", stored[1]) &&
            Settings::write("tts_speed", stored[2]));
    Voice voice;
    start(voice, "early");
    const auto* engine = voice.findChild<QTextToSpeech*>();
    QCOMPARE((QStringList{engine->locale().name(), engine->voice().name(), QString::number(engine->rate())}),
             spoken);
    QCOMPARE(engine->volume(), 1.0);
}

void tst_voice::everyTextToItsEnd_data()
{
    QTest::addColumn<QByteArray>("engine");
    QTest::newRow("busy at once") << QByteArray("early");
    QTest::newRow("busy later") << QByteArray("late");
}

void tst_voice::everyTextToItsEnd()
{
    QFETCH(QByteArray, engine);
    Voice voice;
    start(voice, engine);
    voice.add("nothing", 0);
    for (const char* card : {"0012", "1001", "1002"})
        voice.add(card, 2);
    QCOMPARE(voice.waiting(), 4);
    QTRY_COMPARE(heard(), (QStringList{"0012", "0012", "1001", "1001", "1002", "1002"}));
    QCOMPARE(voice.waiting(), 0);
}

void tst_voice::silencedInTheMiddle()
{
    QFETCH(QByteArray, engine);
    Voice voice;
    start(voice, engine);
    for (const char* card : {"1000", "1001", "1002"})
        voice.add(card, 2);
    while (heard().isEmpty())
        QTest::qWait(1);
    voice.silence();
    QCOMPARE(voice.waiting(), 0);
    const QStringList before = heard();
    QTest::qWait(50);
    QCOMPARE(heard(), before);
    QVERIFY(heard().filter(QRegularExpression("^100")).size() < 6);
    QCOMPARE(voice.findChild<QTextToSpeech*>()->state(), QTextToSpeech::Ready);
}

void tst_voice::whyNothingIsHeard_data()
{
    QTest::addColumn<QByteArray>("engine");
    QTest::addColumn<QString>("fault");
    QTest::newRow("heard") << QByteArray("early") << QString();
    QTest::newRow("in error") << QByteArray("broken") << QString("语音引擎出错");
    QTest::newRow("without voices") << QByteArray("mute") << QString("语音引擎没有发音人");
}

/// An engine that isn't ready gets nothing, and nothing is lost.
void tst_voice::whyNothingIsHeard()
{
    QFETCH(QByteArray, engine);
    QFETCH(QString, fault);
    Voice voice;
    QCOMPARE(voice.fault(), QString("语音播报未开启"));
    start(voice, engine);
    QCOMPARE(voice.fault(), fault);
    voice.add("1000", 1);
    QTest::qWait(30);
    QCOMPARE(voice.waiting(), engine == "broken" ? 1 : 0);
}

/// One whose service has died stays busy for ever; what waits is said by the next one.
void tst_voice::stuckEngineIsReplaced()
{
    Voice voice;
    start(voice, "stuck");
    voice.add("lost", 1);
    voice.add("kept", 2);
    auto* patience = voice.findChild<QTimer*>("patience");
    QTRY_VERIFY(patience->isActive());
    QCOMPARE(voice.waiting(), 1);
    qApp->setProperty("engine", "early");
    patience->start(0);
    QTRY_COMPARE(heard(), (QStringList{"kept", "kept"}));
    QTRY_VERIFY(!patience->isActive());
}

void tst_voice::tooManyAreDropped()
{
    Voice voice;
    for (int i = 0; i < 101; ++i)
        voice.add("old", 1);
    start(voice, "late");
    QTest::qWait(50);
    for (int i = 0; i < 100; ++i)
        voice.add("new", 1);
    QTRY_COMPARE(heard().count("new"), 100);
    QCOMPARE(heard().count("old"), 0);
}

void tst_voice::leavingTheModuleSilences()
{
    MainClass* program = MainClass::getInstance();
    qApp->setProperty("engine", "stuck");
    program->initTts();
    program->findChild<Voice*>()->findChild<QTimer*>()->setInterval(2);
    program->ttsAddData("broken off", 2);
    program->ttsAddData("never said");
    QTest::qWait(50);
    QCOMPARE(heard(), QStringList());
    program->stopTimer();
    QCOMPARE(heard(), QStringList{"cut:broken off"});
    qApp->setProperty("engine", "early");
    program->ttsAddData("next");
    QTRY_COMPARE(heard(), (QStringList{"cut:broken off", "next"}));
}

QTEST_GUILESS_MAIN(tst_voice)
#include "tst_voice.moc"
