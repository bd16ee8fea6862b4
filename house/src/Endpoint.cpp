#include "src/Endpoint.h"

#include "src/Refusal.h"

#include <sstream>

namespace house {
namespace {

std::vector<ModuleRegistration::Add>& registrations()
{
    static std::vector<ModuleRegistration::Add> list;
    return list;
}

bool takesEnd(std::string& text, const std::string& end)
{
    if (text.size() < end.size() || text.compare(text.size() - end.size(), end.size(), end) != 0)
        return false;
    text.resize(text.size() - end.size());
    return true;
}

} // namespace

std::string Reply::text() const
{
    nlohmann::json envelope = {{"code", code}, {"msg", msg}};
    if (data)
        envelope["data"] = *data;
    return envelope.dump(-1, ' ', false, nlohmann::json::error_handler_t::replace);
}

std::vector<Field> fieldsOf(const std::string& list)
{
    std::vector<Field> fields;
    std::istringstream words(list);
    for (std::string name; words >> name;) {
        Field field;
        field.isRequired = !takesEnd(name, "?");
        field.kind = takesEnd(name, "#")    ? Kind::Number
                     : takesEnd(name, "[]") ? Kind::Array
                     : takesEnd(name, "*")  ? Kind::Any
                                            : Kind::Text;
        field.name = name;
        fields.push_back(std::move(field));
    }
    return fields;
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

Endpoint& Endpoint::guardedBy(std::string rightId, std::string field, std::string value)
{
    rights.push_back({std::move(rightId), std::move(field), std::move(value)});
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

Reply Endpoint::answer(House& house, const Call& call) const
{
    try {
        return handler(house, call);
    } catch (const Refusal& refusal) {
        return Reply::refuse(refusal.code, refusal.msg);
    }
}

EndpointTable::EndpointTable()
{
    for (const ModuleRegistration::Add add : registrations())
        add(*this);
}

Endpoint& EndpointTable::add(Verb verb, const std::string& path, const std::string& fields, Handler handler)
{
    Endpoint& endpoint = endpoints[path];
    endpoint.verb = verb;
    endpoint.path = path;
    endpoint.fields = fieldsOf(fields);
    endpoint.handler = std::move(handler);
    return endpoint;
}

const Endpoint* EndpointTable::find(const std::string& path) const
{
    const auto found = endpoints.find(path);
    return found == endpoints.end() ? nullptr : &found->second;
}

ModuleRegistration::ModuleRegistration(Add add) { registrations().push_back(add); }

} // namespace house
