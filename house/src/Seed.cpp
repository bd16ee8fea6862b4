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
}

void readStaff(Seed& seed)
{
    std::map<std::string, std::set<std::string>> roles, supervised;
    for (const auto& [name, role] : seed.document.at("roles").items()) {
        roles[name] = rightsOf(role.at("rights").get<std::vector<std::string>>());
        supervised[name] = rightsOf(role.value("supervised", std::vector<std::string>()));
    }
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
        person.rights = roles.at(person.role);
        person.supervised = supervised.at(person.role);
        seed.staff.push_back(std::move(person));
    }
}

std::string readFile(const std::filesystem::path& path)
{
    std::ifstream file(path, std::ios::binary);
    std::ostringstream content;
    if (!file || !(content << file.rdbuf()))
        throw std::runtime_error("cannot read " + path.string());
    return content.str();
}

json readJson(const std::filesystem::path& path)
{
    try {
        return json::parse(readFile(path));
    } catch (const json::exception& error) {
        throw std::runtime_error(path.string() + ": " + error.what());
    }
}

/// Brings the content of the files that the seed names, beside its own, into the document.
void joinParts(json& document, const std::filesystem::path& folder)
{
    for (const json& name : document.value("parts", json::array())) {
        const json part = readJson(folder / name.get<std::string>());
        for (const auto& [key, value] : part.items()) {
            if (document.contains(key))
                throw std::runtime_error("\"" + key + "\" is given twice");
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

const WorkArea& Seed::areaNamed(const std::string& name) const
{
    if (const WorkArea* area = findBy(areas, &WorkArea::name, name))
        return *area;
    throw std::runtime_error("no work area is called \"" + name + "\"");
}

void Seed::fillAddress(const std::string& url, const std::string& scheme, int port)
{
    fillTexts(document, {{"{url}", url}, {"{scheme}", scheme}, {"{port}", std::to_string(port)}});
}

Seed loadSeed(const std::string& path)
{
    const std::filesystem::path folder = std::filesystem::path(path).parent_path();
    Seed seed;
    seed.document = readJson(path);
    joinParts(seed.document, folder);
    const json& store = seed.document.at("store");
    seed.storeId = store.at("storeId").get<std::string>();
    seed.compId = store.at("compId").get<std::string>();
    seed.tokenLifetimeSeconds = seed.document.value("tokenLifetimeSeconds", 7200LL);
    for (const json& row : seed.document.at("areas"))
        seed.areas.push_back({row.at("areaId").get<std::string>(), row.at("areaName").get<std::string>()});
    readTerminals(seed);
    readStaff(seed);
    return seed;
}

} // namespace house
