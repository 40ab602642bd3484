#pragma once

#include "platform/SharedCondition.h"

#include <chrono>
#include <cstdint>

namespace platform {

/// Waits while the word has this value, until the deadline on the monotonic clock at most. May return early.
/// @param reach  who changes the word
/// @return 0, or ETIMEDOUT after the deadline
int awaitChange(std::uint32_t& word, std::uint32_t value, SharedCondition::Reach reach,
                std::chrono::steady_clock::time_point deadline) noexcept;

/// Ends the waits for a change of the word, after it was changed.
void wakeWaiters(std::uint32_t& word, SharedCondition::Reach reach) noexcept;

} // namespace platform
