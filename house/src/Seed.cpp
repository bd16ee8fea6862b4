#include "src/Seed.h"

#include "src/Rights.h"

#include <filesystem>
#include <fstream>
#include <map>
#include <sstream>
#include <stdexcept>

namespace house {
namespace {

using nlohmann::json;

/// What is wrong with the content of a seed that is JSON; never leaves this file.
struct SeedError : std::runtime_error
{
    using std::runtime_error::runtime_error;
};

template <typename Rows>
auto findBy(const Rows& rows, std::string Rows::value_type::*field, const std::string& value) -> const
    typename Rows::value_type*
{
    if (value.empty())
        return nullptr;
    for (const auto& row : rows)
        if (row.*field == value)
            return &row;
    return nullptr;
}

template <typename Rows>
void demandUnique(const Rows& rows, std::string Rows::value_type::*field, const char* what)
{
    std::set<std::string> seen;
    for (const auto& row : rows)
        if ((row.*field).empty() || !seen.insert(row.*field).second)
            throw SeedError(std::string(what) + " \"" + row.*field + "\" is empty or given twice");
}

std::map<std::string, std::set<std::string>> readRoles(const json& document)
{
    std::map<std::string, std::set<std::string>> roles;
    for (const auto& [name, role] : document.at("roles").items()) {
        std::string fault;
        const auto rights = rightsOf(role.at("rights").get<std::vector<std::string>>(), fault);
        if (!rights)
            throw SeedError("role \"" + name + "\" names the unknown right \"" + fault + "\"");
        roles[name] = *rights;
    }
    return roles;
}

void readTerminals(Seed& seed)
{
    for (const json& row : seed.document.at("terminals")) {
        Terminal terminal;
        terminal.authCode = row.at("authCode").get<std::string>();
        terminal.record = row.at("record");
        terminal.id = terminal.record.at("id").get<std::string>();
        terminal.secretKey = terminal.record.at("secretKey").get<std::string>();
        terminal.record["storeId"] = seed.storeId;
        terminal.record["compId"] = seed.compId;
        terminal.record["storeName"] = seed.document.at("store").at("storeName");
        seed.terminals.push_back(std::move(terminal));
    }
    demandUnique(seed.terminals, &Terminal::id, "terminal id");
    demandUnique(seed.terminals, &Terminal::authCode, "terminal code");
    demandUnique(seed.terminals, &Terminal::secretKey, "terminal key");
}

void readStaff(Seed& seed)
{
    const auto roles = readRoles(seed.document);
    for (const json& row : seed.document.at("staff")) {
        Staff person;
        person.id = row.at("staffId").get<std::string>();
        person.code = row.at("code").get<std::string>();
        person.name = row.at("name").get<std::string>();
        person.password = row.at("pwd").get<std::string>();
        person.card = row.at("card").get<std::string>();
        person.role = row.at("role").get<std::string>();
        person.workerTypes = row.value("workerTypes", "");
        person.active = row.value("active", true);
        person.areaIds = row.at("areaIds").get<std::vector<std::string>>();
        const auto role = roles.find(person.role);
        if (role == roles.end())
            throw SeedError("staff member " + person.code + " has the unknown role \"" + person.role + "\"");
        person.rights = role->second;
        for (const std::string& areaId : person.areaIds)
            if (!seed.area(areaId))
                throw SeedError("staff member " + person.code + " has the unknown work area " + areaId);
        seed.staff.push_back(std::move(person));
    }
    demandUnique(seed.staff, &Staff::id, "staff id");
    demandUnique(seed.staff, &Staff::code, "staff number");
    demandUnique(seed.staff, &Staff::card, "staff card");
}

Seed readSeed(json document)
{
    Seed seed;
    seed.document = std::move(document);
    const json& store = seed.document.at("store");
    seed.storeId = store.at("storeId").get<std::string>();
    seed.compId = store.at("compId").get<std::string>();
    seed.tokenLifetimeSeconds = seed.document.value("tokenLifetimeSeconds", 7200LL);
    for (const json& row : seed.document.at("areas"))
        seed.areas.push_back({row.at("areaId").get<std::string>(), row.at("areaName").get<std::string>()});
    demandUnique(seed.areas, &WorkArea::id, "work area id");
    readTerminals(seed);
    readStaff(seed);
    for (const char* record : {"sysconfig", "planconfig", "cardconfig", "mqttInfo", "lines"})
        if (!seed.document.at(record).is_object())
            throw SeedError(std::string("\"") + record + "\" must be an object");
    if (!seed.document.at("lines").at("lineCheckHttpPath").is_string() ||
        !seed.document.at("kvupload").is_string())
        throw SeedError("\"lineCheckHttpPath\" and \"kvupload\" must be texts");
    if (!seed.document.at("modAuth").is_array())
        throw SeedError("\"modAuth\" must be a list");
    return seed;
}

json readJson(const std::filesystem::path& path)
{
    std::ifstream file(path, std::ios::binary);
    std::ostringstream content;
    if (!file || !(content << file.rdbuf()))
        throw SeedError("cannot read " + path.string());
    return json::parse(content.str());
}

/// Brings the content of the files that the seed names, beside its own, into the document.
void joinParts(json& document, const std::filesystem::path& folder)
{
    for (const json& name : document.value("parts", json::array())) {
        const json part = readJson(folder / name.get<std::string>());
        for (const auto& [key, value] : part.items()) {
            if (document.contains(key))
                throw SeedError("\"" + key + "\" is given twice");
            document[key] = value;
        }
    }
}

void replaceAll(std::string& text, const std::string& from, const std::string& to)
{
    for (std::size_t at = text.find(from); at != std::string::npos; at = text.find(from, at + to.size()))
        text.replace(at, from.size(), to);
}

void fillTexts(json& value, const std::map<std::string, std::string>& words)
{
    if (value.is_string()) {
        std::string text = value.get<std::string>();
        for (const auto& [word, replacement] : words)
            replaceAll(text, word, replacement);
        value = text;
    } else if (value.is_structured()) {
        for (json& part : value)
            fillTexts(part, words);
    }
}

} // namespace

const Terminal* Seed::terminalById(const std::string& id) const { return findBy(terminals, &Terminal::id, id); }

const Terminal* Seed::terminalByAuthCode(const std::string& authCode) const
{
    return findBy(terminals, &Terminal::authCode, authCode);
}

const Terminal* Seed::terminalBySecretKey(const std::string& secretKey) const
{
    return findBy(terminals, &Terminal::secretKey, secretKey);
}

const Staff* Seed::staffById(const std::string& id) const { return findBy(staff, &Staff::id, id); }

const Staff* Seed::staffByCode(const std::string& code) const { return findBy(staff, &Staff::code, code); }

const Staff* Seed::staffByCard(const std::string& card) const { return findBy(staff, &Staff::card, card); }

const WorkArea* Seed::area(const std::string& id) const { return findBy(areas, &WorkArea::id, id); }

void Seed::fillAddress(const std::string& url, const std::string& scheme, int port)
{
    fillTexts(document, {{"{url}", url}, {"{scheme}", scheme}, {"{port}", std::to_string(port)}});
}

std::variant<Seed, std::string> loadSeed(const std::string& path)
{
    const std::string damaged = "the seed file " + path + " is damaged: ";
    try {
        Seed seed = readSeed(readJson(path));
        joinParts(seed.document, std::filesystem::path(path).parent_path());
        return seed;
    } catch (const json::exception& error) {
        return damaged + error.what();
    } catch (const SeedError& error) {
        return damaged + error.what();
    }
}

} // namespace house
