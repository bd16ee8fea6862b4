#include "app/MainClass.h"
#include "app/Voice.h"
#include "common/Sqlite.h"

#include <QDir>
#include <QTemporaryDir>
#include <QtTest>

#include <memory>

class tst_voice : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void cleanupTestCase() { QDir::setCurrent(QDir::rootPath()); }
    void cleanup() { m_voice.reset(); }

    void settings_data();
    void settings();
    void everyTextToItsEnd_data();
    void everyTextToItsEnd();
    void tooManyAreDropped();
    void leavingTheModuleSilences();

private:
    void start(bool isLateBusy);
    static QObject* engine() { return qApp->findChild<QObject*>(QStringLiteral("recordingEngine")); }
    static QStringList of(const char* property) { return engine()->property(property).toStringList(); }
    static void hurry(QObject* voice) { voice->findChild<QTimer*>()->setInterval(2); }

    QTemporaryDir m_folder;
    std::unique_ptr<Voice> m_voice;
};

void tst_voice::initTestCase()
{
    QVERIFY(QDir::setCurrent(m_folder.path()));
    Sqlite table;
    QVERIFY(table.open() && table.createTable());
}

void tst_voice::start(bool isLateBusy)
{
    qApp->setProperty("lateBusy", isLateBusy);
    m_voice.reset(new Voice);
    m_voice->init();
    hurry(m_voice.get());
}

void tst_voice::settings_data()
{
    QTest::addColumn<QStringList>("stored"); // language, voice, speed
    QTest::addColumn<QString>("manner");     // rate, volume, locale, voice with its locale
    QTest::newRow("none") << QStringList{"", "", ""} << "0 1 en_US Default";
    QTest::newRow("all") << QStringList{Voice::label(QLocale("zh_CN")), "Mei", "-10"} << "-10 1 zh_CN Meizh_CN";
    QTest::newRow("gone") << QStringList{"Klingon ()", "Ting", "3"} << "3 1 en_US Default";
}

void tst_voice::settings()
{
    QFETCH(QStringList, stored);
    QFETCH(QString, manner);
    Sqlite table;
    QVERIFY(table.open() && table.addData("tts_language", stored[0]) && table.addData("tts_voice", stored[1]) &&
            table.addData("tts_speed", stored[2]));
    start(false);
    QCOMPARE(engine()->property("manner").toString(), manner);
    QCOMPARE(Voice::label(QLocale("zh_CN")), QStringLiteral("简体中文 (中国)"));
}

void tst_voice::everyTextToItsEnd_data()
{
    QTest::addColumn<bool>("isLateBusy");
    QTest::newRow("busy at once") << false;
    QTest::newRow("busy later") << true;
}

void tst_voice::everyTextToItsEnd()
{
    QFETCH(bool, isLateBusy);
    start(isLateBusy);
    m_voice->add("nothing", 0);
    for (const char* card : {"0012", "1001", "1002"})
        m_voice->add(card, 2);
    QTRY_COMPARE(of("said"), (QStringList{"0012", "0012", "1001", "1001", "1002", "1002"}));
    QCOMPARE(of("cut"), QStringList());
}

void tst_voice::tooManyAreDropped()
{
    start(true);
    for (int i = 0; i < 101; ++i)
        m_voice->add("old", 1);
    QTest::qWait(50);
    m_voice->add("new", 1);
    QTRY_COMPARE(of("said"), QStringList{"new"});
    for (int i = 0; i < 100; ++i)
        m_voice->add("waiting", 1);
    QTRY_COMPARE(of("said").size(), 101);
}

void tst_voice::leavingTheModuleSilences()
{
    MainClass* program = MainClass::getInstance();
    program->ttsAddData("before the engine", 1);
    qApp->setProperty("lateBusy", false);
    program->initTts();
    hurry(program->findChild<Voice*>());
    QTRY_COMPARE(of("said"), QStringList{"before the engine"});
    engine()->setProperty("isMute", true); // stays busy: what comes behind waits
    program->ttsAddData("broken off", 2);
    program->ttsAddData("never said");
    QTest::qWait(50);
    program->stopTimer();
    QCOMPARE(of("cut"), QStringList{"broken off"});
    engine()->setProperty("isMute", false);
    program->ttsAddData("next");
    QTRY_COMPARE(of("said"), (QStringList{"before the engine", "next"}));
}

QTEST_GUILESS_MAIN(tst_voice)
#include "tst_voice.moc"
