#include "platform/Deadline.h"

#include <algorithm>

namespace platform {
namespace {

constexpr unsigned int LONGEST = 1U << 30;

} // namespace

std::chrono::steady_clock::time_point deadlineAfter(unsigned int seconds) noexcept {
    return std::chrono::steady_clock::now() + std::chrono::seconds(std::min(seconds, LONGEST));
}

} // namespace platform
