#include "src/House.h"

namespace house {

void orderOthers(House& house, double perSecond, std::uint64_t seed)
{
    house.others = {perSecond, seed, house.others.number + 1};
    house.othersChanged.notify_all();
}

void announce(House& house, const char* topicWord, const std::string& payload)
{
    std::string topic = house.seed.document["mqttInfo"]["mqttTopics"].value(topicWord, std::string());
    const std::size_t place = topic.find("%s");
    if (place == std::string::npos)
        return;
    house.publisher->publish(topic.replace(place, 2, house.seed.storeId), payload);
}

} // namespace house
