#pragma once

#include "app/MainClass.h"
#include "common/GlobalConfig.h"
#include "entry/Pages.h"
#include "support/BrokerProcess.h"

#include "RoomFixture.h"

#include <QGuiApplication>

#include <cstdio>

/// What a measurement of live pages needs: an application without a screen, a house, and a broker that the
/// terminal listens to.
class LiveTerminal
{
public:
    LiveTerminal(int& argc, char** argv) : m_application(withoutScreen(argc), argv)
    {
        if (!isUp()) {
            std::fprintf(stderr, "no back end or no broker\n");
            return;
        }
        registerSingletons();
        registerTypes();
        GlobalConfig* config = GlobalConfig::getInstance();
        config->setMqttUrl(QStringLiteral("127.0.0.1"));
        config->setMqttPort(broker.port());
        config->setMqttUser(BrokerProcess::user());
        config->setMqttPwd(BrokerProcess::password());
        MainClass::getInstance()->initMqtt(true);
    }

    bool isUp() { return terminal.isUp() && broker.isRunning(); }

private:
    static int& withoutScreen(int& argc)
    {
        qputenv("QT_QPA_PLATFORM", "offscreen");
        qputenv("QT_QUICK_BACKEND", "software");
        qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) {});
        return argc;
    }

    QGuiApplication m_application;

public:
    BrokerProcess broker;
    RoomFixture terminal;
};
