#include "src/Options.h"

#include "src/House.h"
#include "src/Text.h"

#include <charconv>
#include <functional>
#include <map>
#include <stdexcept>

namespace house {
namespace {

constexpr int usageExitCode = 2;
constexpr int highestPort = 65535;
constexpr int mostRooms = 5000;
constexpr int mostItems = 50000;

constexpr char helpText[] = R"(kv_house --seed FILE [options]

  --seed FILE             the house: store, terminals, staff, rights (JSON)
  --host ADDRESS          address to listen on, for terminals on other machines theirs of this one (127.0.0.1)
  --port N                port to listen on; 0 picks a free one (0)
  --rooms N               number of rooms instead of those of the seed
  --items N               number of goods, where that is more than those of the seed
  --others N              other terminals change N rooms, orders and services a second, such as 0.2; 0 for none
                          (0). What a caller has named in the last ten minutes they leave alone
  --tls CERT KEY          serve HTTPS with this certificate and key (PEM files)
  --url-file FILE         write the address to this file when ready
  --log FILE              write the log to this file instead of the standard error stream
  --fault PATH=KIND[:ARG] misbehave on a path, or on all with "*"; may be repeated. Kinds: delay:MS, drop,
                          drop-after, http500, http500-ok, garbage, truncate, hang, refuse:CODE
  --mqtt-url tcp://H:P    broker told to the terminals, instead of the seed's; the house publishes there
  --mqtt-user USER
  --mqtt-pwd PASSWORD
  --no-publish            tell the terminals the broker, but publish nothing
  --help

When ready, one line goes to the standard output: "kv_house ready URL". SIGTERM and SIGINT end it.
)";

/// The readers throw std::invalid_argument, which tells what is wrong with the value.
int readNumber(const std::string& text, int highest)
{
    const auto value = decimal(text);
    if (!value || *value > highest)
        throw std::invalid_argument("needs a number from 0 to " + std::to_string(highest));
    return static_cast<int>(*value);
}

double readRate(const std::string& text)
{
    double perSecond = 0;
    const char* end = text.data() + text.size();
    const auto [rest, fault] = std::from_chars(text.data(), end, perSecond, std::chars_format::fixed);
    const bool isNumber = fault == std::errc() && rest == end;
    if (!isNumber || !(perSecond >= 0 && perSecond <= OthersOrder::highestPerSecond))
        throw std::invalid_argument("needs a number of changes per second");
    return perSecond;
}

std::pair<std::string, Fault> readFault(const std::string& text)
{
    const std::size_t equals = text.find('=');
    if (equals == 0 || equals == std::string::npos)
        throw std::invalid_argument("needs PATH=KIND[:ARG]");
    return {text.substr(0, equals), makeFault(text.substr(equals + 1))};
}

using Reader = std::function<void(const std::string& value)>;

std::map<std::string, Reader> readers(Options& options)
{
    const auto keep = [](std::string& target) -> Reader {
        return [&target](const std::string& value) { target = value; };
    };
    return {
        {"--seed", keep(options.seedFile)},
        {"--host", keep(options.host)},
        {"--log", keep(options.logFile)},
        {"--url-file", keep(options.urlFile)},
        {"--mqtt-url", keep(options.mqttUrl)},
        {"--mqtt-user", keep(options.mqttUser)},
        {"--mqtt-pwd", keep(options.mqttPassword)},
        {"--port", [&](const std::string& value) { options.port = readNumber(value, highestPort); }},
        {"--rooms", [&](const std::string& value) { options.rooms = readNumber(value, mostRooms); }},
        {"--items", [&](const std::string& value) { options.items = readNumber(value, mostItems); }},
        {"--others", [&](const std::string& value) { options.othersPerSecond = readRate(value); }},
        {"--fault", [&](const std::string& value) { options.faults.push_back(readFault(value)); }},
    };
}

EarlyExit wrongUse(const std::string& what)
{
    return {usageExitCode, "kv_house: " + what + "\nTry kv_house --help.\n"};
}

} // namespace

std::variant<Options, EarlyExit> parseOptions(const std::vector<std::string>& arguments)
{
    Options options;
    const std::map<std::string, Reader> known = readers(options);
    for (std::size_t i = 0; i < arguments.size(); ++i) {
        const std::string& name = arguments[i];
        const std::size_t following = arguments.size() - i - 1;
        if (name == "--help")
            return EarlyExit{0, helpText};
        if (name == "--no-publish") {
            options.publishes = false;
            continue;
        }
        if (name == "--tls" && following >= 2) {
            options.certFile = arguments[++i];
            options.keyFile = arguments[++i];
            continue;
        }
        const auto reader = known.find(name);
        if (reader == known.end() || following < 1)
            return wrongUse((reader == known.end() ? "unknown or incomplete option " : "no value for ") + name);
        try {
            reader->second(arguments[++i]);
        } catch (const std::invalid_argument& fault) {
            return wrongUse(name + " " + arguments[i] + ": " + fault.what());
        }
    }
    if (options.seedFile.empty())
        return wrongUse("--seed is missing");
    return options;
}

} // namespace house
