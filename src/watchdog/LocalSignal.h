#pragma once

#include <condition_variable>
#include <mutex>

namespace platwifi {

/// A signal between threads of this process. It stays raised until check() or reset() takes it
/// back. Any thread may call.
class LocalSignal {
public:
    /// Raises the signal and wakes one thread in check().
    void raise() noexcept;

    /// Takes the signal back, if it is raised.
    void reset() noexcept;

    /// Waits for the given seconds or until raise() is called, then takes the signal back. A signal
    /// that is already raised does not end the wait: it is seen when the time is over.
    /// @return -1 when the signal was raised, else 0
    int check(unsigned int seconds) noexcept;

private:
    std::mutex m_mutex;
    std::condition_variable m_condition;
    bool m_requested = false;
};

} // namespace platwifi
