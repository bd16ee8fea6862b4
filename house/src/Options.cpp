#include "src/Options.h"

#include "src/House.h"
#include "src/Text.h"

#include <charconv>
#include <functional>
#include <map>
#include <optional>

namespace house {
namespace {

constexpr int usageExitCode = 2;
constexpr int highestPort = 65535;
constexpr int mostRooms = 5000;

constexpr char helpText[] = R"(kv_house --seed FILE [options]

  --seed FILE             the house: store, terminals, staff, rights (JSON)
  --host ADDRESS          address to listen on (127.0.0.1)
  --port N                port to listen on; 0 picks a free one (0)
  --rooms N               number of rooms instead of those of the seed
  --room-mode             the house works by rooms, without guests' hand cards: each room's number is its card
  --others N              other terminals change N rooms, orders and services a second, such as 0.2; 0 for none
                          (0). What a caller has named in the last ten minutes they leave alone
  --tls CERT KEY          serve HTTPS with this certificate and key (PEM files)
  --public-url URL        the house's own address in the line list, when it stands behind another one
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

/// Nothing when the value is good, else what is wrong with it.
using Complaint = std::optional<std::string>;

Complaint readNumber(const std::string& text, int highest, int& number)
{
    const auto value = decimal(text);
    if (!value || *value > highest)
        return "needs a number from 0 to " + std::to_string(highest) + ", got \"" + text + "\"";
    number = static_cast<int>(*value);
    return {};
}

Complaint readRate(const std::string& text, double& perSecond)
{
    const char* end = text.data() + text.size();
    const auto [rest, fault] = std::from_chars(text.data(), end, perSecond, std::chars_format::fixed);
    if (fault == std::errc() && rest == end && perSecond >= 0 && perSecond <= OthersOrder::highestPerSecond)
        return {};
    return "needs a number of changes per second, got \"" + text + "\"";
}

Complaint readFault(const std::string& text, Options& options)
{
    const std::size_t equals = text.find('=');
    if (equals == 0 || equals == std::string::npos)
        return "needs PATH=KIND[:ARG], got \"" + text + "\"";
    const auto fault = makeFault(text.substr(equals + 1));
    if (const std::string* error = std::get_if<std::string>(&fault))
        return *error;
    options.faults.emplace_back(text.substr(0, equals), std::get<Fault>(fault));
    return {};
}

using Reader = std::function<Complaint(const std::string& value)>;

std::map<std::string, Reader> readers(Options& options)
{
    const auto keep = [](std::string& target) -> Reader {
        return [&target](const std::string& value) -> Complaint {
            target = value;
            return {};
        };
    };
    return {
        {"--seed", keep(options.seedFile)},
        {"--host", keep(options.host)},
        {"--log", keep(options.logFile)},
        {"--url-file", keep(options.urlFile)},
        {"--public-url", keep(options.publicUrl)},
        {"--mqtt-url", keep(options.mqttUrl)},
        {"--mqtt-user", keep(options.mqttUser)},
        {"--mqtt-pwd", keep(options.mqttPassword)},
        {"--port", [&](const std::string& value) { return readNumber(value, highestPort, options.port); }},
        {"--rooms", [&](const std::string& value) { return readNumber(value, mostRooms, options.rooms); }},
        {"--others", [&](const std::string& value) { return readRate(value, options.othersPerSecond); }},
        {"--fault", [&](const std::string& value) { return readFault(value, options); }},
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
        if (name == "--room-mode") {
            options.worksByRooms = true;
            continue;
        }
        if (name == "--tls") {
            if (following < 2)
                return wrongUse("--tls needs a certificate and a key");
            options.certFile = arguments[++i];
            options.keyFile = arguments[++i];
            continue;
        }
        const auto reader = known.find(name);
        if (reader == known.end())
            return wrongUse("unknown option " + name);
        if (following < 1)
            return wrongUse(name + " needs a value");
        if (const Complaint fault = reader->second(arguments[++i]))
            return wrongUse(name + ": " + *fault);
    }
    if (options.seedFile.empty())
        return wrongUse("--seed is missing");
    return options;
}

} // namespace house
