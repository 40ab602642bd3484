#include "common/WordWait.h"

#include "GrowingPause.h"

#include <cerrno>

namespace platform {
namespace {

constexpr std::chrono::milliseconds LONGEST_PAUSE{10};

} // namespace

// POSIX has nothing that waits for a word. Its condition variables count the threads that wait: a process that is
// killed there would leave one for which a later broadcast waits for ever.
int awaitChange(std::uint32_t& word, std::uint32_t value, bool /*isLocal*/,
                std::chrono::steady_clock::time_point deadline) noexcept {
    GrowingPause pause(deadline, LONGEST_PAUSE);
    while (__atomic_load_n(&word, __ATOMIC_ACQUIRE) == value) {
        if (!pause.next())
            return ETIMEDOUT;
    }
    return 0;
}

void wakeWaiters(std::uint32_t& /*word*/, bool /*isLocal*/) noexcept {}

} // namespace platform
