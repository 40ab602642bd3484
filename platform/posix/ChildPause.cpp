#include "platform/ChildPause.h"

#include "GrowingPause.h"
#include "platform/PlatformUtil.h"

#include <cerrno>
#include <sys/wait.h>

namespace {

constexpr std::chrono::milliseconds LONGEST_STEP{50}; // of the pause after a kill

enum class State { RUNNING, ENDED, UNKNOWN };

// Leaves the status of the child to be reaped.
State stateOf(int child) noexcept {
    siginfo_t info{};
    int result = -1;
    do
        result = waitid(P_PID, static_cast<id_t>(child), &info, WEXITED | WNOHANG | WNOWAIT);
    while (result != 0 && errno == EINTR);
    if (result != 0)
        return State::UNKNOWN;
    return info.si_pid == child ? State::ENDED : State::RUNNING;
}

} // namespace

ChildPause::ChildPause(int processId) noexcept
    : m_child(processId > 0 && stateOf(processId) != State::UNKNOWN ? processId : 0) {}

// Most clients end within a millisecond: the first steps are short.
void ChildPause::pause(int milliseconds) noexcept {
    if (m_child == 0) {
        PlatformUtil::sleep(milliseconds);
        return;
    }
    const auto deadline =
        std::chrono::steady_clock::now() + std::chrono::milliseconds(milliseconds);
    platform::GrowingPause step(deadline, LONGEST_STEP);
    do {
        if (stateOf(m_child) !=
            State::RUNNING) // unknown: the system has reaped it, as SIGCHLD is ignored
            m_child = 0;
    } while (m_child != 0 && step.next());
}
