#pragma once

#include "src/House.h"

#include <nlohmann/json.hpp>
#include <string>
#include <unordered_map>
#include <vector>

namespace house {

/// Makes the records in which rooms travel. Sorts the lines by room once, so make one for each answer.
class RoomRecords
{
public:
    RoomRecords(const House& house, Seconds now);

    nlohmann::json board(const Room& room) const;       ///< a tile of the board
    nlohmann::json detail(const Room& room) const;      ///< with cards and callable services
    nlohmann::json consumption(const Room& room) const; ///< the lines, oldest first
    nlohmann::json candidate(const Room& room) const;   ///< for a group

    std::string floorName(const Room& room) const;
    std::string typeName(const Room& room) const;

private:
    using Lines = std::vector<const Order*>;
    const Lines& linesOf(const Room& room) const;
    double due(const Room& room) const;
    std::string lastService(const Room& room) const;
    std::string staffCodes(const Room& room, Progress progress) const;
    std::string groupRooms(const Room& room) const;
    nlohmann::json cardEntries(const Room& room) const;
    const Staff* staff(const std::string& id) const { return house.seed.staffById(id); }

    const House& house;
    const Seconds now;
    std::unordered_map<std::string, Lines> lines;
    std::unordered_map<std::string, std::vector<const Room*>> groups;
};

const char* statusWord(RoomStatus status);

std::string codeOf(const Staff* person); ///< empty for nobody
std::string nameOf(const Staff* person);

} // namespace house
