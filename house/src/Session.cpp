#include "src/Session.h"

#include "src/Text.h"

namespace house {
namespace {

constexpr std::size_t tokenDigits = 32;
constexpr std::int64_t voucherSeconds = 300;

std::string voucherKey(const std::string& staffId, const std::string& deviceId)
{
    return staffId + "@" + deviceId;
}

} // namespace

const Session& Sessions::open(const std::string& staffId, const std::string& deviceId, std::int64_t endsAt)
{
    const std::string token = randomHex(tokenDigits);
    return sessions[token] = {token, randomHex(tokenDigits), staffId, deviceId, endsAt};
}

const Session* Sessions::find(const std::string& token, std::int64_t now) const
{
    const auto found = sessions.find(token);
    return found != sessions.end() && now < found->second.endsAt ? &found->second : nullptr;
}

void Sessions::extend(const std::string& token, std::int64_t endsAt)
{
    const auto found = sessions.find(token);
    if (found != sessions.end())
        found->second.endsAt = endsAt;
}

void Sessions::vouch(const std::string& staffId, const std::string& deviceId, std::int64_t now)
{
    vouchers[voucherKey(staffId, deviceId)] = now;
}

bool Sessions::hasVouched(const std::string& staffId, const std::string& deviceId, std::int64_t now) const
{
    const auto found = vouchers.find(voucherKey(staffId, deviceId));
    return found != vouchers.end() && now - found->second <= voucherSeconds;
}

bool NonceLog::admit(const std::string& nonce, bool isGet, const std::string& target, std::int64_t now)
{
    dropOld(now);
    const auto found = uses.find(nonce);
    if (found == uses.end()) {
        uses[nonce] = {target, isGet, false};
        order.emplace_back(now, nonce);
        return true;
    }
    const Use& use = found->second;
    return isGet && use.isGet && !use.isAnswered && use.target == target;
}

void NonceLog::markAnswered(const std::string& nonce)
{
    const auto found = uses.find(nonce);
    if (found != uses.end())
        found->second.isAnswered = true;
}

void NonceLog::dropOld(std::int64_t now)
{
    // A request older than the tolerance on either side fails by its time, so its nonce need not be kept.
    while (!order.empty() && now - order.front().first > 2 * timestampToleranceSeconds) {
        uses.erase(order.front().second);
        order.pop_front();
    }
}

} // namespace house
