#include "vm/module5/Diagnosis.h"

#include "app/MainClass.h"
#include "common/Clock.h"
#include "common/GlobalConfig.h"
#include "common/LogFolder.h"
#include "common/Settings.h"
#include "net/LogText.h"
#include "print/InstalledPrinters.h"

#include <QCoreApplication>
#include <QDir>
#include <QSaveFile>
#include <QStorageInfo>
#include <QSysInfo>

#include <algorithm>

namespace {

/// A day of trouble has more, but its end tells what went wrong.
constexpr qint64 mostLogBytes = 8 << 20;
constexpr int leastSecretLength = 4; ///< shorter texts stand everywhere by chance

QString section(const char* name) { return QStringLiteral("\n==== %1\n").arg(QString::fromUtf8(name)); }

QString factsOfTerminal()
{
    const GlobalConfig& config = *GlobalConfig::getInstance();
    const TerminalDto* terminal = config.terminalInfo();
    const CardConfigDto* cards = config.cardConfig();
    const QStorageInfo disk(QDir::currentPath());
    const QStringList lines{
        QStringLiteral("program: %1").arg(QCoreApplication::applicationVersion()),
        QStringLiteral("file: %1").arg(QCoreApplication::applicationFilePath()),
        QStringLiteral("working folder: %1").arg(QDir::currentPath()),
        QStringLiteral("Qt: %1, built with %2")
            .arg(QString::fromLatin1(qVersion()), QStringLiteral(QT_VERSION_STR)),
        QStringLiteral("system: %1, %2").arg(QSysInfo::prettyProductName(), QSysInfo::kernelVersion()),
        QStringLiteral("processor: %1").arg(QSysInfo::currentCpuArchitecture()),
        QStringLiteral("free disk: %1 MB").arg(disk.bytesAvailable() >> 20),
        QStringLiteral("store: %1").arg(config.storeName()),
        QStringLiteral("terminal: %1").arg(terminal ? terminal->name() : QString()),
        QStringLiteral("line: %1").arg(config.apiUrl()),
        QStringLiteral("broker: %1:%2").arg(config.mqttUrl()).arg(config.mqttPort()),
        QStringLiteral("broker is away: %1").arg(MainClass::getInstance()->isBrokerAway()),
        QStringLiteral("staff reader: %1").arg(MainClass::getInstance()->staffPort()),
        QStringLiteral("hand card reader: %1").arg(MainClass::getInstance()->hasHandReader()),
        QStringLiteral("hand card reader's model: %1").arg(cards ? cards->lock_type() : 0),
        QStringLiteral("printers: %1").arg(installedPrinters().join(QStringLiteral(", ")))};
    return lines.join(QLatin1Char('\n')) + QLatin1Char('\n');
}

QString settingsOfTerminal()
{
    QString text;
    for (const Settings::Key& key : Settings::keys())
        text +=
            QStringLiteral("%1 = %2\n").arg(QLatin1String(key.name), Settings::read(QLatin1String(key.name)));
    return text;
}

/// The files of the day, the oldest first: what is full is put aside under a number.
QStringList filesOf(const QDir& folder, const QString& day)
{
    QStringList names = folder.entryList({day + QStringLiteral("*.log*")}, QDir::Files, QDir::Name);
    std::reverse(names.begin(), names.end());
    const QString current = day + QStringLiteral(".log");
    if (names.removeAll(current) > 0)
        names.append(current);
    return names;
}

QString logOf(const QDir& folder, const QString& day)
{
    QByteArray bytes;
    for (const QString& name : filesOf(folder, day)) {
        QFile file(folder.filePath(name));
        if (file.open(QIODevice::ReadOnly))
            bytes = (bytes + file.readAll()).right(mostLogBytes);
    }
    return QString::fromUtf8(bytes);
}

/// Of the newest log that has one.
QString lastSelfTest(const QDir& folder)
{
    QString found;
    for (const QFileInfo& file : folder.entryInfoList({QStringLiteral("*.log*")}, QDir::Files, QDir::Time)) {
        QFile log(file.filePath());
        if (!log.open(QIODevice::ReadOnly))
            continue;
        while (!log.atEnd()) {
            const QString line = QString::fromUtf8(log.readLine(4096));
            if (line.contains(QLatin1String("selftest:")))
                found += line;
        }
        if (!found.isEmpty())
            return found;
    }
    return QStringLiteral("none in these days' logs\n");
}

} // namespace

Diagnosis::Diagnosis()
    : m_facts(factsOfTerminal()), m_settings(settingsOfTerminal()), m_logFolder(logFolder()),
      m_today(Clock::now().toString(QStringLiteral("yyyy-MM-dd"))),
      m_stamp(Clock::now().toString(QStringLiteral("yyyyMMdd-HHmmss")))
{
    const GlobalConfig& config = *GlobalConfig::getInstance();
    for (const QString& secret : {config.secretKey(), GlobalConfig::getRegValue(QStringLiteral("secretKey")),
                                  GlobalConfig::getRegValue(QStringLiteral("authCode")), config.token(),
                                  config.secret(), config.mqttPwd(), config.loginPwd(), config.loginRfid()}) {
        if (secret.size() >= leastSecretLength && !m_secrets.contains(secret))
            m_secrets.append(secret);
    }
    std::sort(m_secrets.begin(), m_secrets.end(),
              [](const QString& one, const QString& other) { return one.size() > other.size(); });
}

QString Diagnosis::withoutSecrets(const QString& text) const
{
    QString clean = masked(text);
    for (const QString& secret : m_secrets)
        clean.replace(secret, QStringLiteral("***"));
    return clean;
}

QString Diagnosis::write(const QString& folder) const
{
    const QDir target(folder);
    QSaveFile file(target.filePath(QStringLiteral("diagnosis-%1.txt").arg(m_stamp)));
    if (!target.mkpath(QStringLiteral(".")) || !file.open(QIODevice::WriteOnly))
        return {};
    const QString text = m_stamp + QLatin1Char('\n') + section("versions") + m_facts + section("settings") +
                         m_settings + section("last self-test") + lastSelfTest(QDir(m_logFolder)) +
                         section("log of the day") + logOf(QDir(m_logFolder), m_today);
    const QByteArray bytes = withoutSecrets(text).toUtf8();
    if (file.write(bytes) != bytes.size() || !file.commit())
        return {};
    return QDir::toNativeSeparators(target.absoluteFilePath(file.fileName()));
}
