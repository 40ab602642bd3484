#include "platform/ChildPause.h"
#include "platform/PlatformUtil.h"
#include "support/RecordedPlatform.h"

#include <csignal>
#include <sys/wait.h>

namespace {

// Waits for the end of the child, so that the next look finds it ended even on a busy machine.
void killAndWait(int processId) {
    kill(processId, SIGKILL);
    siginfo_t info{};
    waitid(P_PID, static_cast<id_t>(processId), &info, WEXITED | WNOWAIT);
}

} // namespace

void ChildPause::pause(int milliseconds) noexcept {
    test::RecordedPlatform::note("pause " + std::to_string(milliseconds));
}

int PlatformUtil::killProcess(int processId) noexcept {
    if (test::RecordedPlatform::noteKill(processId))
        killAndWait(processId);
    return 0;
}
