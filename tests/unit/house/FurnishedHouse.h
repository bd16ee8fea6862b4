#pragma once

#include "src/House.h"
#include "src/state/StateSeed.h"

#include <QString>
#include <QStringList>
#include <QtGlobal>

#include <memory>
#include <string>

/// What the tests of the house share.

inline std::string seedPath() { return KV_SOURCE_FOLDER "/house/seed/house.json"; }

/// A house of the seed, with the times of its guests counted back from `now`; null, with a word about it, when
/// the seed can't be read. It has no clock and no broker.
inline std::unique_ptr<house::House> furnishedHouse(house::Seconds now, int rooms = 0,
                                                    bool worksByRooms = false)
{
    auto seed = house::loadSeed(seedPath());
    const auto* damage = std::get_if<std::string>(&seed);
    if (damage) {
        qWarning("%s", damage->c_str());
        return nullptr;
    }
    auto house = std::make_unique<house::House>();
    house->seed = std::get<house::Seed>(std::move(seed));
    house->seed.document["sysconfig"]["usedRoomMod"] = worksByRooms ? 1 : 0;
    auto state = house::furnish(house->seed, rooms, now);
    const auto* fault = std::get_if<std::string>(&state);
    if (fault) {
        qWarning("%s", fault->c_str());
        return nullptr;
    }
    house->state = std::get<house::State>(std::move(state));
    return house;
}

/// What an endpoint answers the manager at the first terminal, the check of the request left out.
inline house::Reply handle(house::House& house, const std::string& path, const nlohmann::json& body,
                           house::Seconds now, const std::map<std::string, std::string>& params = {})
{
    house::Call call;
    call.body = body;
    call.params = params;
    call.terminal = &house.seed.terminals.front();
    call.staff = house.seed.staffByCode("1001");
    call.now = now;
    return house.endpoints.find(path)->handler(house, call);
}

/// The data of the answer, null without any.
inline nlohmann::json told(house::House& house, const std::string& path, const nlohmann::json& body,
                           house::Seconds now)
{
    const house::Reply reply = handle(house, path, body, now);
    return reply.data ? *reply.data : nlohmann::json();
}

/// The room's record on the board.
inline nlohmann::json boardOf(house::House& house, const char* code, house::Seconds now)
{
    const nlohmann::json rooms = told(house, "/bba01/getRoomList", {{"roomno", code}}, now);
    return rooms.size() == 1 ? rooms.front() : nlohmann::json();
}

/// JSON in which "$101" stands for the id of room 101, "#8001" for that of a card, and "%一楼" for that of a
/// floor or a room type.
inline nlohmann::json filled(const house::House& house, QString text)
{
    const auto fill = [&](QChar mark, const std::string& name, const std::string& id) {
        text.replace(mark + QString::fromStdString(name) + '"', QString::fromStdString(id) + '"');
    };
    for (const house::Room& each : house.state.rooms)
        fill('$', each.code, each.id);
    for (const house::Card& each : house.state.cards)
        fill('#', each.number, each.id);
    for (const house::Floor& each : house.state.floors)
        fill('%', each.name, each.id);
    for (const house::RoomType& each : house.state.roomTypes)
        fill('%', each.name, each.id);
    return nlohmann::json::parse(text.toStdString());
}

/// Keeps the topics on which the house publishes.
class Recorder final : public house::Publisher
{
public:
    explicit Recorder(QStringList& topics) : m_topics(topics) {}
    bool publish(const std::string& topic, const std::string&) override
    {
        m_topics.append(QString::fromStdString(topic));
        return true;
    }

private:
    QStringList& m_topics;
};
