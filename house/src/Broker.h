#pragma once

#include "src/Log.h"
#include "src/Publisher.h"

#include <atomic>
#include <condition_variable>
#include <mutex>
#include <nlohmann/json.hpp>
#include <string>
#include <thread>

struct mosquitto;

namespace house {

/// Publishes on an MQTT broker from a thread of its own, which also connects, again and again while the broker
/// is away. Messages of that time are lost: whoever listens fetches the whole when he comes back.
class Broker final : public Publisher
{
public:
    /// `mqttInfo` is the record that the terminals get. An address that is none leaves the house silent.
    Broker(const nlohmann::json& mqttInfo, Log& log);
    ~Broker() override;
    Broker(const Broker&) = delete;
    Broker& operator=(const Broker&) = delete;

    bool publish(const std::string& topic, const std::string& payload) override;

private:
    void serve(const std::string& host, int port);
    static void onConnect(mosquitto* client, void* self, int refusal);
    static void onDisconnect(mosquitto* client, void* self, int reason);

    Log& log;
    std::string address;
    mosquitto* client = nullptr;
    std::atomic<bool> isConnected{false};
    std::mutex mutex; ///< of what follows
    std::condition_variable ending;
    bool isEnding = false;
    std::thread thread;
};

} // namespace house
