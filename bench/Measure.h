#pragma once

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <ctime>
#include <vector>

/// Side-by-side measurements: every candidate runs once in each round, so that whatever else the machine does
/// hits all alike, and the medians are compared as ratios.
namespace Measure {

template <typename Action>
double microseconds(Action&& action)
{
    const auto begin = std::chrono::steady_clock::now();
    action();
    return std::chrono::duration<double, std::micro>(std::chrono::steady_clock::now() - begin).count();
}

/// What this thread itself worked: another program that runs beside it doesn't count.
template <typename Action>
double cpuMicroseconds(Action&& action)
{
    const auto now = [] {
        timespec time{};
        clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
        return static_cast<double>(time.tv_sec) * 1e6 + static_cast<double>(time.tv_nsec) / 1e3;
    };
    const double begin = now();
    action();
    return now() - begin;
}

inline double median(std::vector<double> values)
{
    std::nth_element(values.begin(), values.begin() + values.size() / 2, values.end());
    return values[values.size() / 2];
}

/// One line of the table: what against what, both medians, their ratio and the most that it should be (0: no
/// goal).
inline void printRatio(const char* what, const char* unit, double base, double measured, double goal)
{
    const double ratio = measured / base;
    std::printf("%-66s %9.1f %9.1f %-3s %6.2f", what, base, measured, unit, ratio);
    if (goal > 0)
        std::printf("  goal %4.2f %s", goal, ratio <= goal ? "met" : "MISSED");
    std::printf("\n");
    std::fflush(stdout);
}

} // namespace Measure
