#include "platform/ChildPause.h"

#include "platform/PlatformUtil.h"

#include <cerrno>
#include <chrono>
#include <poll.h>
#include <sys/syscall.h>
#include <unistd.h>

namespace {

using Clock = std::chrono::steady_clock;

// A plain system call: glibc 2.36 declares pidfd_open() without C linkage, older versions do not
// have it.
int openProcessWatch(int processId) noexcept {
#ifdef SYS_pidfd_open
    return static_cast<int>(syscall(SYS_pidfd_open, processId, 0));
#else
    errno = ENOSYS;
    return -1;
#endif
}

int millisecondsUntil(Clock::time_point deadline) noexcept {
    const auto left = std::chrono::ceil<std::chrono::milliseconds>(deadline - Clock::now());
    return static_cast<int>(left.count());
}

// 1 when the descriptor became readable, 0 after the time, -1 on error.
int waitReadable(int descriptor, int milliseconds) noexcept {
    const auto deadline = Clock::now() + std::chrono::milliseconds(milliseconds);
    for (int left = milliseconds; left > 0; left = millisecondsUntil(deadline)) {
        pollfd watched{descriptor, POLLIN, 0};
        const int ready = poll(&watched, 1, left);
        if (ready >= 0 || errno != EINTR)
            return ready;
    }
    return 0;
}

} // namespace

ChildPause::ChildPause(int processId) noexcept
    : m_child(processId), m_watch(openProcessWatch(processId)) {}

void ChildPause::pause(int milliseconds) noexcept {
    if (!m_watch.isOpen()) {
        PlatformUtil::sleep(milliseconds);
        return;
    }
    const int ready = waitReadable(m_watch.number(), milliseconds);
    if (ready != 0)
        m_watch.close();
    if (ready < 0)
        PlatformUtil::sleep(milliseconds);
}
