#include "watchdog/LocalSignal.h"

#include "platform/Deadline.h"

#include <utility>

namespace platwifi {

void LocalSignal::raise() noexcept {
    const std::lock_guard<std::mutex> guard(m_mutex);
    m_requested = true;
    m_condition.notify_one();
}

void LocalSignal::reset() noexcept {
    const std::lock_guard<std::mutex> guard(m_mutex);
    m_requested = false;
}

int LocalSignal::check(unsigned int seconds) noexcept {
    std::unique_lock<std::mutex> guard(m_mutex);
    m_condition.wait_until(guard, platform::deadlineAfter(seconds));
    return std::exchange(m_requested, false) ? -1 : 0;
}

} // namespace platwifi
