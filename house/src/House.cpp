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
    if (house.publisher && place != std::string::npos)
        house.publisher->publish(topic.replace(place, 2, house.seed.storeId), payload);
}

Seconds businessDayStart(const House& house, Seconds now)
{
    constexpr Seconds daySeconds = 24 * 60 * 60;
    const std::string startTime = house.seed.document.at("sysconfig").value("startTime", "00:00:00");
    const Seconds start = timeOn(now, startTime);
    return start > now ? start - daySeconds : start;
}

} // namespace house
