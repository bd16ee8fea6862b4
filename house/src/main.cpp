#include "src/Broker.h"
#include "src/House.h"
#include "src/Options.h"
#include "src/Others.h"
#include "src/Server.h"
#include "src/state/StateSeed.h"

#include <csignal>
#include <cstdio>
#include <ctime>
#include <fstream>
#include <iostream>
#include <pthread.h>
#include <unistd.h>

namespace {

using namespace house;

int fail(const std::string& message)
{
    std::cerr << "kv_house: " << message << std::endl;
    return 1;
}

sigset_t endingSignals()
{
    sigset_t signals;
    sigemptyset(&signals);
    sigaddset(&signals, SIGTERM);
    sigaddset(&signals, SIGINT);
    return signals;
}

void overrideBroker(nlohmann::json& mqttInfo, const Options& options)
{
    const std::pair<const char*, const std::string&> overrides[] = {
        {"hostUrl", options.mqttUrl}, {"username", options.mqttUser}, {"password", options.mqttPassword}};
    for (const auto& [field, value] : overrides)
        if (!value.empty())
            mqttInfo[field] = value;
}

/// As terminals are told it: one that listens everywhere is called here.
std::string urlOf(const Options& options, const std::string& scheme, int port)
{
    const bool isEverywhere = options.host == "0.0.0.0" || options.host == "::";
    const bool isV6 = !isEverywhere && options.host.find(':') != std::string::npos;
    const std::string host = isEverywhere ? "127.0.0.1" : isV6 ? "[" + options.host + "]" : options.host;
    return scheme + "://" + host + ":" + std::to_string(port);
}

/// Whoever waits for the file never sees a part of it.
bool writeUrlFile(const std::string& path, const std::string& url)
{
    const std::string unfinished = path + "." + std::to_string(getpid());
    std::ofstream file(unfinished);
    file << url;
    file.close();
    if (file && std::rename(unfinished.c_str(), path.c_str()) == 0)
        return true;
    std::remove(unfinished.c_str());
    return false;
}

int run(const Options& options)
{
    Log log;
    if (!log.open(options.logFile))
        return fail("cannot write the log file " + options.logFile);
    House house;
    house.clock = [] { return static_cast<std::int64_t>(std::time(nullptr)); };
    house.seed = loadSeed(options.seedFile);
    house.state = furnish(house.seed, options.rooms, house.clock(), options.items);
    overrideBroker(house.seed.document["mqttInfo"], options);
    for (const auto& [path, fault] : options.faults)
        house.faults.set(path, fault, -1);

    // Before any thread starts, so that each inherits the mask and only sigwait() gets these signals.
    const sigset_t signals = endingSignals();
    pthread_sigmask(SIG_BLOCK, &signals, nullptr);
    std::signal(SIGPIPE, SIG_IGN);

    if (options.publishes)
        house.publisher = std::make_unique<Broker>(house.seed.document["mqttInfo"], log);
    Server server(house, log);
    const std::string error = server.bind(options);
    if (!error.empty())
        return fail(error);
    const std::string scheme = options.certFile.empty() ? "http" : "https";
    const std::string url = urlOf(options, scheme, server.port());
    house.seed.fillAddress(url, scheme, server.port());
    orderOthers(house, options.othersPerSecond, OthersOrder().seed);
    server.start();
    const Others others(house, log);

    if (!options.urlFile.empty() && !writeUrlFile(options.urlFile, url))
        return fail("cannot write the address file " + options.urlFile);
    std::cout << "kv_house ready " << url << std::endl;
    int signal = 0;
    sigwait(&signals, &signal);
    server.stop();
    return 0;
}

} // namespace

int main(int argc, char** argv)
{
    const std::variant<Options, EarlyExit> parsed = parseOptions({argv + 1, argv + argc});
    if (const EarlyExit* exit = std::get_if<EarlyExit>(&parsed)) {
        (exit->exitCode == 0 ? std::cout : std::cerr) << exit->text << std::flush;
        return exit->exitCode;
    }
    try {
        return run(std::get<Options>(parsed));
    } catch (const std::exception& error) {
        return fail(error.what());
    }
}
