#pragma once

#include <cstdint>
#include <deque>
#include <map>
#include <string>
#include <unordered_map>
#include <utility>

/// Logins that are in force, supervisors who have just vouched, and the nonces seen. Times are Unix seconds.
namespace house {

struct Session
{
    std::string token;
    std::string secret;
    std::string staffId;
    std::string deviceId;
    std::int64_t endsAt = 0;
};

class Sessions
{
public:
    const Session& open(const std::string& staffId, const std::string& deviceId, std::int64_t endsAt);
    /// Null when the token was never given out or its session has ended. Valid until the next call on this
    /// object.
    const Session* find(const std::string& token, std::int64_t now) const;
    void extend(const std::string& token, std::int64_t endsAt);

    /// A supervisor has identified himself at a terminal without a login of his own.
    void vouch(const std::string& staffId, const std::string& deviceId, std::int64_t now);
    bool hasVouched(const std::string& staffId, const std::string& deviceId, std::int64_t now) const;

private:
    std::map<std::string, Session> sessions;
    std::map<std::string, std::int64_t> vouchers; ///< staff and terminal to the time of the last identification
};

/// Refuses a nonce that was used before. A transport that failed may repeat a GET word for word, so an
/// identical GET passes again as long as no answer to it has gone out.
class NonceLog
{
public:
    bool admit(const std::string& nonce, bool isGet, const std::string& target, std::int64_t now);
    void markAnswered(const std::string& nonce);

private:
    struct Use
    {
        std::string target;
        bool isGet = false;
        bool isAnswered = false;
    };
    void dropOld(std::int64_t now);
    std::unordered_map<std::string, Use> uses;
    std::deque<std::pair<std::int64_t, std::string>> order; ///< time and nonce, oldest first
};

/// How far a request's time may lie from the house's own.
constexpr std::int64_t timestampToleranceSeconds = 300;

} // namespace house
