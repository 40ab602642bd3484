#pragma once

#include <condition_variable>
#include <mutex>

namespace platwifi {

/// A signal between threads of this process. It stays raised until somebody has seen it. Any thread may
/// call.
class LocalSignal {
public:
    /// Raises the signal and wakes one thread in check().
    void raise() noexcept;

    /// Takes the signal back.
    void reset() noexcept;

    /// Waits for raise(), at the longest for the given seconds, and always: a signal that was raised
    /// before is only seen when this wait is over.
    /// @return -1 when the signal was raised, and takes it back; else 0
    int check(unsigned int seconds) noexcept;

private:
    std::mutex m_mutex;
    std::condition_variable m_condition;
    bool m_requested = false;
};

} // namespace platwifi
