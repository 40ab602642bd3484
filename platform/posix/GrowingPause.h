#pragma once

#include "common/MonotonicTime.h"

#include <algorithm>
#include <chrono>

namespace platform {

/// The pauses between the looks at something that tells nothing when it changes. What changes soon is seen soon: the
/// first pause takes a millisecond, each later one twice as long as the one before.
class GrowingPause {
public:
    /// @param deadline  the end of the last pause
    /// @param longest   the longest pause
    GrowingPause(std::chrono::steady_clock::time_point deadline,
                 std::chrono::milliseconds longest) noexcept
        : m_deadline(deadline), m_longest(longest) {}

    /// Sleeps. @return false, at once, after the deadline
    bool next() noexcept {
        const auto now = std::chrono::steady_clock::now();
        if (now >= m_deadline)
            return false;
        sleepUntil(std::min(m_deadline, now + m_length));
        m_length = std::min(2 * m_length, m_longest);
        return true;
    }

private:
    std::chrono::steady_clock::time_point m_deadline;
    std::chrono::milliseconds m_longest;
    std::chrono::milliseconds m_length{1};
};

} // namespace platform
