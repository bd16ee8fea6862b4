#pragma once

#include <fstream>
#include <mutex>
#include <string>

namespace house {

/// One line per event, to a file or to the standard error stream. May be used from any thread.
class Log
{
public:
    /// An empty path means the standard error stream. False when the file can't be written.
    bool open(const std::string& path);
    void line(const std::string& text);

private:
    std::mutex mutex;
    std::ofstream file;
};

} // namespace house
