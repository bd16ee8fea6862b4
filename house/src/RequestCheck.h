#pragma once

#include "src/Endpoint.h"

#include <nlohmann/json.hpp>
#include <optional>
#include <string>

/// The strict check that every request passes before its endpoint sees it.
namespace house {

/// A request as it travelled: nothing here is decoded.
struct WireRequest
{
    std::string method;
    std::string path;
    std::string target; ///< path and query
    std::optional<std::string> authorization;
    std::string contentType;
    std::string body;
    bool hasBody = false; ///< a GET's body isn't read, only noticed
};

/// The percent-encoded JSON of a request, empty when it has none: a GET's "data" parameter or a POST's body.
std::string encodedJson(const WireRequest& request);

/// The call for the handler. Refuses with a code "REQ_ERR_…" or "AUTH_ERR_0002". The caller holds the house's
/// mutex. A request that passes has used up its nonce, and what it names is held for its caller.
Call checkRequest(House& house, const Endpoint& endpoint, const WireRequest& request);

} // namespace house
