#include "app/MainClass.h"

#include "app/Voice.h"
#include "common/GlobalConfig.h"
#include "common/MyMessage.h"
#include "common/Settings.h"
#include "devices/HandCardDevice.h"
#include "devices/StaffDevice.h"
#include "services/Baa00Service.h"
#include "services/KvsystemService.h"

#include <QCoreApplication>
#include <QDebug>

#include <limits>

namespace {

/// Shorter sessions are left to run out; the keep-alive of longer ones comes a margin before their end.
constexpr long keepLoginThresholdSeconds = 900;
constexpr long keepLoginMarginSeconds = 75;
constexpr int mostQuestionChars = 2000; ///< parts of it may come from outside

} // namespace

MainClass::MainClass()
    : m_message(MyMessage::getInstance()), m_config(GlobalConfig::getInstance()),
      m_keepLoginTimer(new QTimer(this)), m_voice(new Voice(this)), m_baa00(Baa00Service::getInstance()),
      m_kvsystem(KvsystemService::getInstance())
{
    m_keepLoginTimer->setObjectName(QStringLiteral("keepLogin"));
    m_keepLoginTimer->setTimerType(Qt::PreciseTimer);
    connect(m_keepLoginTimer, &QTimer::timeout, this, [this] { m_baa00->keepLogin()->deleteLater(); });
    connect(m_voice, &Voice::waitingChanged, this, [this] { setVoiceWaiting(m_voice->waiting()); });
    connect(m_voice, &Voice::faultChanged, this, [this] { setVoiceFault(m_voice->fault()); });
    setVoiceFault(m_voice->fault());
    initDb();
}

MainClass::~MainClass()
{
    if (m_staffDevice)
        m_staffDevice->deleteLater();
    if (m_handDevice)
        m_handDevice->deleteLater();
}

void MainClass::init()
{
    setStartFailure({});
    if (!initSysConfig())
        return;
    initMqtt(true);
    initReaders();
}

void MainClass::initDb() { Settings::fill(*m_config); }

QString MainClass::getSqlData(const QString& key) { return Settings::read(key); }

bool MainClass::setSqlData(const QString& key, const QString& value) { return Settings::write(key, value); }

void MainClass::initTts() { m_voice->init(); }

void MainClass::ttsAddData(const QString& text, int count) { m_voice->add(text, count); }

void MainClass::startTimer()
{
    if (m_keepLoginTimer->isActive())
        return;
    qDebug().noquote() << QStringLiteral("定时器打开");
    const long lifetimeSeconds = m_config->tokenTimeStamp();
    if (lifetimeSeconds >= keepLoginThresholdSeconds) {
        const qint64 intervalMs = static_cast<qint64>(lifetimeSeconds - keepLoginMarginSeconds) * 1000;
        m_keepLoginTimer->start(static_cast<int>(qMin<qint64>(intervalMs, std::numeric_limits<int>::max())));
    }
}

void MainClass::stopTimer()
{
    m_voice->silence();
    if (!m_keepLoginTimer->isActive())
        return;
    qDebug().noquote() << QStringLiteral("定时器关闭");
    m_keepLoginTimer->stop();
}

int MainClass::showMsgConfirm(const QString& title, const QString& msg, int limitMs)
{
    m_msgConfirmResult = -1;
    Q_EMIT msgConfirmSignal(title, msg.left(mostQuestionChars), limitMs);
    return m_msgConfirmResult;
}

void MainClass::msgConfirmResult(int result)
{
    m_msgConfirmResult = result;
    Q_EMIT msgConfirmDone();
}

void MainClass::onDestruct(const QString& code) { Q_EMIT destructSignal(code); }

void MainClass::startReadStaff(BaseObject* listener) { m_readers.push(ReaderStacks::Staff, listener); }

void MainClass::stopReadStaff(BaseObject* listener) { m_readers.remove(ReaderStacks::Staff, listener); }

void MainClass::startReadHand(BaseObject* listener)
{
    if (m_handDevice)
        m_readers.push(ReaderStacks::Hand, listener);
}

void MainClass::stopReadHand(BaseObject* listener)
{
    if (m_handDevice)
        m_readers.remove(ReaderStacks::Hand, listener);
}

QString MainClass::staffPort() const { return m_staffDevice ? m_staffDevice->openPort() : QString(); }

void MainClass::initReaders()
{
    m_staffDevice = StaffDevice::initDevice();
    connect(m_staffDevice, &StaffDevice::sendData, this,
            [this](const QString& text) { m_readers.deliver(ReaderStacks::Staff, text); });
    connect(m_staffDevice, &StaffDevice::received, this, &MainClass::staffReceived);
    m_staffDevice->startDevice();

    const CardConfigDto* cards = m_config->cardConfig();
    const int model = cards && cards->lock_type() >= 1 ? cards->lock_type() : 0;
    qDebug() << "SETP 1" << m_config->hand_card_device << model;
    if (m_config->hand_card_device != 1 || model == 0)
        return;
    m_handDevice = HandCardDevice::initDevice(model);
    if (m_handDevice && m_handDevice->getInitStatus()) {
        connect(m_handDevice, &HandCardDevice::sendData, this,
                [this](const QString& text) { m_readers.deliver(ReaderStacks::Hand, text); });
        connect(m_handDevice, &HandCardDevice::received, this, &MainClass::handReceived);
        m_handDevice->startDevice(0);
        // It polls on a thread of its own, which must not outlive the program's data.
        connect(qApp, &QCoreApplication::aboutToQuit, m_handDevice, &HandCardDevice::stopDevice);
    }
}
