#include "src/Log.h"

#include "src/state/State.h"

#include <ctime>
#include <iostream>

namespace house {

bool Log::open(const std::string& path)
{
    if (path.empty())
        return true;
    file.open(path, std::ios::app);
    return file.is_open();
}

void Log::line(const std::string& text)
{
    const std::lock_guard<std::mutex> lock(mutex);
    std::ostream& out = file.is_open() ? static_cast<std::ostream&>(file) : std::cerr;
    out << timeText(std::time(nullptr)) << ' ' << text << std::endl;
}

} // namespace house
