#pragma once

#include <QString>

class GlobalConfig;
class SysApiReqDto;
class SysInitDto;
class SysMqttInfoDto;

/// Takes the broker's address, credentials and topic prefixes. A hostUrl that isn't tcp://host:port leaves
/// address and port as they are; a port that isn't a number leaves the port.
void applyMqttInfo(const SysMqttInfoDto* info, GlobalConfig* config);

/// Takes all that the system-init record tells of this terminal into the shared state, by deep copies, and
/// builds the function menu. An empty list of rights builds none.
void applySysInit(const SysInitDto* sysInit, GlobalConfig* config);

/// The line list as the settings table caches it, and back; text that isn't one gives an empty list, owned by
/// the caller.
QString linesText(const SysApiReqDto* lines);
SysApiReqDto* parseLines(const QString& text);
