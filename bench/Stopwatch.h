#pragma once

#include "Report.h"

#include <chrono>
#include <functional>
#include <vector>

namespace bench {

/// Seconds that one run takes, as the mean of several.
inline double secondsOf(const std::function<void()>& run, int times = 1) {
    const auto begin = std::chrono::steady_clock::now();
    for (int i = 0; i < times; ++i)
        run();
    const std::chrono::duration<double> passed = std::chrono::steady_clock::now() - begin;
    return passed.count() / times;
}

/// Seconds that one run takes, as the median of several: for runs that other processes may disturb.
inline double medianSecondsOf(const std::function<void()>& run, int times) {
    std::vector<double> seconds;
    for (int i = 0; i < times; ++i)
        seconds.push_back(secondsOf(run));
    return median(seconds);
}

} // namespace bench
