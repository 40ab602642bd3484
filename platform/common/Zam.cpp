#include "zam/Zam.h"

#include <ctime>

Zam* Zam::getInstance() noexcept {
    static Zam runtime;
    return &runtime;
}

std::uint64_t Zam::milliseconds() const noexcept {
    timespec now{};
    clock_gettime(CLOCK_MONOTONIC, &now);
    return static_cast<std::uint64_t>(now.tv_sec) * 1000 +
           static_cast<std::uint64_t>(now.tv_nsec) / 1000000;
}
