#include "src/Endpoint.h"

namespace house {
namespace {

std::vector<ModuleRegistration::Add>& registrations()
{
    static std::vector<ModuleRegistration::Add> list;
    return list;
}

} // namespace

std::string Reply::text() const
{
    nlohmann::json envelope = {{"code", code}, {"msg", msg}};
    if (data)
        envelope["data"] = *data;
    return envelope.dump(-1, ' ', false, nlohmann::json::error_handler_t::replace);
}

std::string Call::text(const std::string& field) const { return body.value(field, std::string()); }

Endpoint& Endpoint::needs(std::string name, Kind kind)
{
    fields.push_back({std::move(name), kind, true});
    return *this;
}

Endpoint& Endpoint::takes(std::string name, Kind kind)
{
    fields.push_back({std::move(name), kind, false});
    return *this;
}

Endpoint& Endpoint::query(std::vector<std::string> names)
{
    params = std::move(names);
    return *this;
}

Endpoint& Endpoint::open(Access kind)
{
    access = kind;
    return *this;
}

Endpoint& Endpoint::guardedBy(RightRule rule)
{
    rights.push_back(std::move(rule));
    return *this;
}

Endpoint& Endpoint::withoutOperator()
{
    hasOperator = false;
    return *this;
}

Endpoint& Endpoint::withoutIds()
{
    mayLackIds = true;
    return *this;
}

EndpointTable::EndpointTable()
{
    for (const ModuleRegistration::Add add : registrations())
        add(*this);
}

const Endpoint* EndpointTable::find(const std::string& path) const
{
    const auto found = endpoints.find(path);
    return found == endpoints.end() ? nullptr : &found->second;
}

Endpoint& EndpointTable::add(Verb verb, const std::string& path, Handler handler)
{
    Endpoint& endpoint = endpoints[path];
    endpoint.verb = verb;
    endpoint.path = path;
    endpoint.handler = std::move(handler);
    return endpoint;
}

ModuleRegistration::ModuleRegistration(Add add) { registrations().push_back(add); }

} // namespace house
