#pragma once

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <vector>

/// Side-by-side measurements: every candidate runs once in each round, so that whatever else the machine does hits all
/// alike, and the medians are compared as ratios.
namespace Measure {

template <typename Action>
double microseconds(Action&& action)
{
    const auto begin = std::chrono::steady_clock::now();
    action();
    return std::chrono::duration<double, std::micro>(std::chrono::steady_clock::now() - begin).count();
}

inline double median(std::vector<double> values)
{
    std::nth_element(values.begin(), values.begin() + values.size() / 2, values.end());
    return values[values.size() / 2];
}

/// One line of the table: what, base, measured, ratio, goal.
inline void printRatio(const char* what, double baseMicroseconds, double microseconds, double goal)
{
    const double ratio = microseconds / baseMicroseconds;
    std::printf("%-72s %10.1f us %10.1f us  %5.2f  goal %4.2f  %s\n", what, baseMicroseconds, microseconds, ratio, goal,
                ratio <= goal ? "met" : "MISSED");
    std::fflush(stdout);
}

} // namespace Measure
