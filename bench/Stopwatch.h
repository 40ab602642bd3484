#pragma once

#include <chrono>
#include <functional>

namespace bench {

/// Seconds that one run takes, as the mean of several.
inline double secondsOf(const std::function<void()>& run, int times = 1) {
    const auto begin = std::chrono::steady_clock::now();
    for (int i = 0; i < times; ++i)
        run();
    const std::chrono::duration<double> passed = std::chrono::steady_clock::now() - begin;
    return passed.count() / times;
}

} // namespace bench
