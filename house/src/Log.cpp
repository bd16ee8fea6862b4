#include "src/Log.h"

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
    const std::time_t now = std::time(nullptr);
    std::tm local{};
    localtime_r(&now, &local);
    char stamp[32];
    std::strftime(stamp, sizeof stamp, "%Y-%m-%d %H:%M:%S", &local);

    const std::lock_guard<std::mutex> lock(mutex);
    std::ostream& out = file.is_open() ? static_cast<std::ostream&>(file) : std::cerr;
    out << stamp << ' ' << text << std::endl;
}

} // namespace house
