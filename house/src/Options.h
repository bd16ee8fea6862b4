#pragma once

#include "src/Faults.h"

#include <string>
#include <utility>
#include <variant>
#include <vector>

namespace house {

struct Options
{
    std::string seedFile;
    std::string host = "127.0.0.1"; ///< address to listen on
    int port = 0;                   ///< 0 picks a free one
    int rooms = 0;                  ///< 0 leaves the rooms of the seed
    int items = 0;                  ///< goods; 0 leaves those of the seed
    std::string certFile;
    std::string keyFile; ///< both empty without TLS
    std::string logFile;
    std::string urlFile;
    std::string mqttUrl;
    std::string mqttUser;
    std::string mqttPassword;
    double othersPerSecond = 0;
    bool publishes = true; ///< announces changes on the broker told to the terminals
    std::vector<std::pair<std::string, Fault>> faults; ///< path and fault
};

/// The process ends before the house opens: with the help text, or with what is wrong with the command line.
struct EarlyExit
{
    int exitCode = 0;
    std::string text;
};

std::variant<Options, EarlyExit> parseOptions(const std::vector<std::string>& arguments);

} // namespace house
