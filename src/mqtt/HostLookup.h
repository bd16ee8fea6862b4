#pragma once

#include <QString>

#include <future>

/// Asks for the addresses of a host, as texts in the order to try them, on a thread of its own that nobody
/// waits for: neither the future's end nor the end of the process, so that a name server that is silent holds
/// nothing up. No address means that there is no such host; a future that isn't valid that no thread could be
/// started.
std::future<QStringList> lookUpHost(const QString& name);
