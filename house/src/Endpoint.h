#pragma once

#include "src/Rights.h"
#include "src/Seed.h"
#include "src/Session.h"

#include <functional>
#include <map>
#include <nlohmann/json.hpp>
#include <optional>
#include <string>
#include <vector>

/// What an endpoint is, and how a back-end module brings its endpoints in.
namespace house {

struct House;

/// The envelope of an answer.
struct Reply
{
    std::string code;
    std::string msg;
    std::optional<nlohmann::json> data;

    static Reply done() { return {"200", "操作成功", {}}; }
    static Reply with(nlohmann::json data) { return {"200", "操作成功", std::move(data)}; }
    static Reply refuse(std::string code, std::string msg) { return {std::move(code), std::move(msg), {}}; }

    bool isGood() const { return code == "200"; }
    std::string text() const; ///< as JSON
};

/// A request that has passed the check, as its handler sees it. The pointers live as long as the call.
struct Call
{
    nlohmann::json body;                       ///< the signed JSON
    std::map<std::string, std::string> params; ///< query parameters beside it
    const Terminal* terminal = nullptr;        ///< null when the request carries no ids
    std::optional<Session> session;
    const Staff* staff = nullptr; ///< who is logged in; null without a session
    std::int64_t now = 0;         ///< Unix seconds

    /// A text field, empty when it is missing.
    std::string text(const std::string& field) const { return body.value(field, std::string()); }
};

/// May refuse from within.
using Handler = std::function<Reply(House&, const Call&)>;

enum class Verb { Get, Post };

/// What a request must prove.
enum class Access {
    LineList, ///< never signed, no operator
    Open,     ///< no login needed; signed when one is in force
    Login,    ///< no login and never an Authorization header
    Session,  ///< a login in force
};

enum class Kind { Text, Number, Array, Any };

struct Field
{
    std::string name;
    Kind kind = Kind::Any;
    bool isRequired = true;
};

/// Reads a list such as "id hours# cardids[] status* remark?": a text, a number, an array, anything, and a text
/// that may be missing.
std::vector<Field> fieldsOf(const std::string& list);

struct Endpoint
{
    Verb verb = Verb::Get;
    std::string path;
    std::vector<Field> fields; ///< beside the common ones; any other is refused
    Handler handler;
    Access access = Access::Session;
    std::vector<std::string> params; ///< query parameters, in key order, all required
    std::vector<RightRule> rights;
    bool hasOperator = true; ///< the request names the operator
    bool mayLackIds = false; ///< the terminal may call before it knows its store

    Endpoint& query(std::vector<std::string> names);
    Endpoint& open(Access kind);
    Endpoint& guardedBy(std::string rightId, std::string field = {}, std::string value = {});
    Endpoint& withoutOperator();
    Endpoint& withoutIds();

    /// What the handler answers or refuses with.
    Reply answer(House& house, const Call& call) const;
};

class EndpointTable
{
public:
    /// Holds the endpoints of every registered module.
    EndpointTable();

    Endpoint& get(const std::string& path, const std::string& fields, Handler handler)
    {
        return add(Verb::Get, path, fields, std::move(handler));
    }
    Endpoint& post(const std::string& path, const std::string& fields, Handler handler)
    {
        return add(Verb::Post, path, fields, std::move(handler));
    }
    const Endpoint* find(const std::string& path) const;

private:
    Endpoint& add(Verb verb, const std::string& path, const std::string& fields, Handler handler);

    std::map<std::string, Endpoint> endpoints;
};

/// One static object of this in a module's source file makes the module part of every table.
class ModuleRegistration
{
public:
    using Add = void (*)(EndpointTable&);
    explicit ModuleRegistration(Add add);
};

} // namespace house
