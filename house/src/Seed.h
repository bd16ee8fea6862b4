#pragma once

#include <nlohmann/json.hpp>
#include <set>
#include <string>
#include <vector>

/// What the house is at its start, read from a JSON file and the further files that it names.
namespace house {

struct Terminal
{
    std::string id; ///< what the terminal sends as deviceId
    std::string authCode;
    std::string secretKey;
    nlohmann::json record; ///< the record as the terminal gets it
};

struct Staff
{
    std::string id;
    std::string code; ///< the number typed at login
    std::string name;
    std::string password;
    std::string card; ///< serial of the staff card as the reader delivers it: eight characters
    std::string role;
    std::string workerTypes;
    bool active = true;
    std::vector<std::string> areaIds;
    std::set<std::string> rights;     ///< right ids
    std::set<std::string> supervised; ///< of these those that are used under a supervisor's eyes
};

struct WorkArea
{
    std::string id;
    std::string name;
};

/// Stands still once the house is open; modules read sections of their own from `document`.
struct Seed
{
    nlohmann::json document;
    std::string storeId;
    std::string compId;
    std::vector<Terminal> terminals;
    std::vector<Staff> staff;
    std::vector<WorkArea> areas;
    long long tokenLifetimeSeconds = 0;

    const Terminal* terminalById(const std::string& id) const;
    const Terminal* terminalByAuthCode(const std::string& authCode) const;
    const Terminal* terminalBySecretKey(const std::string& secretKey) const;
    const Staff* staffById(const std::string& id) const;
    const Staff* staffByCode(const std::string& code) const;
    const Staff* staffByCard(const std::string& card) const;
    const WorkArea* area(const std::string& id) const;
    const WorkArea& areaNamed(const std::string& name) const; ///< throws std::runtime_error

    /// Puts the house's own address for "{url}", "{scheme}" and "{port}" in every text of the document.
    void fillAddress(const std::string& url, const std::string& scheme, int port);
};

/// Reads the seed file and the files beside it. Throws a std::exception that tells what is wrong, for the
/// person who starts the house.
Seed loadSeed(const std::string& path);

} // namespace house
