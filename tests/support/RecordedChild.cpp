#include "platform/ChildPause.h"
#include "platform/PlatformUtil.h"
#include "support/RecordedPlatform.h"

#include <csignal>
#include <pthread.h>
#include <sched.h>
#include <sys/wait.h>

namespace {

int ownPriority() {
    sched_param parameters{};
    int policy = 0;
    pthread_getschedparam(pthread_self(), &policy, &parameters);
    return parameters.sched_priority;
}

// The next look must find the child gone, however busy the machine is.
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
    if (test::RecordedPlatform::noteKill(ownPriority()))
        killAndWait(processId);
    return 0;
}
