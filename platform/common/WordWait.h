#pragma once

#include <chrono>
#include <cstdint>

namespace platform {

/// Waits while the word has this value, until the deadline on the monotonic clock at most. May return early.
/// @param isLocal  whether only threads of this process wait for the word and change it
/// @return 0, or ETIMEDOUT after the deadline
int awaitChange(std::uint32_t& word, std::uint32_t value, bool isLocal,
                std::chrono::steady_clock::time_point deadline) noexcept;

/// Ends the waits for a change of the word, after it was changed.
void wakeWaiters(std::uint32_t& word, bool isLocal) noexcept;

} // namespace platform
