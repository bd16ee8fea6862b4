// The settings' page by taps: boxes, numbers, the template, what is unsaved, the workbench.

#include "Terminal.h"

#include "common/Settings.h"

#include <QtTest>

#include <memory>

class tst_settings_page : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void cleanupTestCase() { m_terminal.reset(); }
    void cleanup();
    void settings();
    void leaving();
    void workbench();

private:
    std::unique_ptr<Terminal> m_terminal;
};

void tst_settings_page::initTestCase()
{
    m_terminal.reset(new Terminal);
    QVERIFY(m_terminal->isUp());
    QVERIFY(Settings::write("is_use_tts", "1") && Settings::write("hand_card_com", "COM7"));
    m_terminal->login("bottom_SYS_CTRL", "1001", "1001").walk("-loginDlg +Module5").picture("settings");
    WALKED(*m_terminal);
}

void tst_settings_page::cleanup()
{
    for (const QString& message : m_terminal->takeMessages())
        QVERIFY2(!message.startsWith("page|"), qPrintable(message));
}

void tst_settings_page::settings()
{
    m_terminal->walk("?settingsState.text=参数没有修改 set_print +choiceDialog").picture("settings-printers");
    m_terminal->walk("choice_1 -choiceDialog ?settingsState.text=有未保存的修改 set_is_single_print");
    m_terminal->walk("set_staff_device_com +choiceDialog").picture("settings-ports");
    m_terminal->walk("closeButton -choiceDialog");
    m_terminal->walk(
        "set_tts_speed +numDlg #101 confirmButton -numDlg set_tts_language choice_1 -choiceDialog");
    m_terminal->picture("settings-changed")
        .walk("saveButton =success|参数保存成功 restartButton +msgConfirmDlg");
    m_terminal->picture("settings-restart").walk("cancelButton -msgConfirmDlg").picture("settings-saved");
    WALKED(*m_terminal);
    QCOMPARE(Settings::read("tts_speed"), QString("-1"));
    QCOMPARE(Settings::read("print"), QString("预览打印机"));
    QCOMPARE(Settings::read("is_single_print"), QString("1"));
    QCOMPARE(Settings::read("hand_card_com"), QString("COM7"));
    QCOMPARE(Settings::read("tts_language"), QString("简体中文 (中国)"));
}

/// What was changed back asks nothing; the template follows its keys.
void tst_settings_page::leaving()
{
    m_terminal->walk(
        "!settingsScroll.contentY=600 usualTemplate insertNumber ?settingsState.text=有未保存的修改");
    m_terminal->picture("settings-template");
    m_terminal->walk("returnButton +msgConfirmDlg cancelButton -msgConfirmDlg usualTemplate");
    m_terminal->until("nothing is unsaved",
                      [this] { return m_terminal->text("settingsState").startsWith("已保存"); });
    m_terminal->walk("returnButton +tileGrid");
    m_terminal->login("bottom_SYS_CTRL", "1001", "1001")
        .walk("-loginDlg +Module5 set_is_single_print returnButton");
    m_terminal->walk("+msgConfirmDlg confirmButton +tileGrid");
    WALKED(*m_terminal);
    QCOMPARE(Settings::read("is_single_print"), QString("1"));
}

void tst_settings_page::workbench()
{
    m_terminal->login("bottom_SYS_CTRL", "1001", "1001")
        .walk("-loginDlg +Module5 !settingsScroll.contentY=900");
    m_terminal->walk(
        "printTest voiceTest linesTest +measured_0 readersTest ?readersTest.text=停止读卡 @12345 +row_0");
    m_terminal->until("what came of the slip",
                      [this] { return !m_terminal->text("printTestResult").isEmpty(); });
    m_terminal->picture("workbench").walk("readersTest ?readersTest.text=开始读卡 diagnosisTest");
    m_terminal->until("the file", [this] { return QFile::exists(m_terminal->text("diagnosisTestResult")); });
    m_terminal->picture("workbench-file");
    m_terminal->act([this] { QFile::remove(m_terminal->text("diagnosisTestResult")); });
    m_terminal->walk("returnButton +tileGrid");
    WALKED(*m_terminal);
}

QTEST_MAIN(tst_settings_page)
#include "tst_settings_page.moc"
