#include "src/Broker.h"

#include "src/Text.h"

#include <algorithm>
#include <chrono>
#include <mosquitto.h>
#include <optional>

namespace house {
namespace {

constexpr int defaultPort = 1883;
constexpr int highestPort = 65535;
constexpr int keepAliveSeconds = 20;
constexpr int loopMs = 1000;
constexpr std::chrono::seconds shortestWait{1};
constexpr std::chrono::seconds longestWait{30};
constexpr int atMostOnce = 0;
const std::string urlStart = "tcp://";

struct Address
{
    std::string host;
    int port = defaultPort;
};

std::optional<Address> addressOf(const std::string& url)
{
    if (url.compare(0, urlStart.size(), urlStart) != 0)
        return {};
    Address address;
    address.host = url.substr(urlStart.size());
    const std::size_t colon = address.host.rfind(':');
    if (colon != std::string::npos && address.host.back() != ']') {
        const auto port = decimal(address.host.substr(colon + 1));
        if (!port || *port < 1 || *port > highestPort)
            return {};
        address.port = static_cast<int>(*port);
        address.host.resize(colon);
    }
    if (address.host.size() > 1 && address.host.front() == '[' && address.host.back() == ']')
        address.host = address.host.substr(1, address.host.size() - 2);
    return address.host.empty() ? std::nullopt : std::make_optional(address);
}

} // namespace

Broker::Broker(const nlohmann::json& mqttInfo, Log& log) : log(log), address(mqttInfo.value("hostUrl", ""))
{
    const std::optional<Address> target = addressOf(address);
    mosquitto_lib_init();
    if (target)
        client = mosquitto_new(nullptr, true, this);
    if (!client) {
        log.line("mqtt: can't publish at \"" + address + "\"");
        return;
    }
    const std::string user = mqttInfo.value("username", "");
    const std::string password = mqttInfo.value("password", "");
    if (!user.empty())
        mosquitto_username_pw_set(client, user.c_str(), password.c_str());
    mosquitto_connect_callback_set(client, onConnect);
    mosquitto_disconnect_callback_set(client, onDisconnect);
    // Its publishing wakes the serving thread instead of writing to the connection.
    mosquitto_threaded_set(client, true);
    thread = std::thread([this, target = *target] { serve(target.host, target.port); });
}

Broker::~Broker()
{
    if (client) {
        {
            const std::lock_guard<std::mutex> lock(mutex);
            isEnding = true;
        }
        ending.notify_all();
        mosquitto_disconnect(client);
        thread.join();
        mosquitto_destroy(client);
    }
    mosquitto_lib_cleanup();
}

// The library's own thread gives up when the very first attempt fails.
void Broker::serve(const std::string& host, int port)
{
    int result = mosquitto_connect_async(client, host.c_str(), port, keepAliveSeconds);
    std::chrono::seconds wait = shortestWait;
    std::unique_lock<std::mutex> lock(mutex);
    while (!isEnding) {
        if (result != MOSQ_ERR_SUCCESS) {
            ending.wait_for(lock, wait, [this] { return isEnding; });
            wait = std::min(wait * 2, longestWait);
        }
        lock.unlock();
        if (result != MOSQ_ERR_SUCCESS)
            result = mosquitto_reconnect_async(client);
        if (result == MOSQ_ERR_SUCCESS)
            result = mosquitto_loop(client, loopMs, 1);
        if (isConnected)
            wait = shortestWait;
        lock.lock();
    }
}

bool Broker::publish(const std::string& topic, const std::string& payload)
{
    return isConnected && mosquitto_publish(client, nullptr, topic.c_str(), static_cast<int>(payload.size()),
                                            payload.data(), atMostOnce, false) == MOSQ_ERR_SUCCESS;
}

void Broker::onConnect(mosquitto*, void* self, int refusal)
{
    Broker& broker = *static_cast<Broker*>(self);
    broker.isConnected = refusal == 0;
    broker.log.line("mqtt " + broker.address + ": " + mosquitto_connack_string(refusal));
}

void Broker::onDisconnect(mosquitto*, void* self, int reason)
{
    Broker& broker = *static_cast<Broker*>(self);
    if (broker.isConnected.exchange(false))
        broker.log.line("mqtt " + broker.address + ": " + mosquitto_strerror(reason));
}

} // namespace house
