#include "platform/Deadline.h"

#include <algorithm>

namespace platform {
namespace {

constexpr unsigned int MAX_SECONDS = 1U << 30; // a 32-bit time_t must not overflow

} // namespace

std::chrono::steady_clock::time_point deadlineAfter(unsigned int seconds) noexcept {
    return std::chrono::steady_clock::now() + std::chrono::seconds(std::min(seconds, MAX_SECONDS));
}

} // namespace platform
