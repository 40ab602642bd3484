#include "support/RecordedPlatform.h"

#include "platform/ChildPause.h"
#include "platform/PlatformUtil.h"

#include <csignal>
#include <mutex>
#include <sched.h>
#include <sys/wait.h>

namespace {

struct Record {
    std::mutex mutex;
    std::vector<std::string> events;
    std::vector<int> killPriorities;
    int swallowedKills = 0;
};

Record& record() {
    static Record instance;
    return instance;
}

void note(const std::string& event) {
    const std::lock_guard<std::mutex> guard(record().mutex);
    record().events.push_back(event);
}

int ownPriority() {
    sched_param parameters{};
    int policy = 0;
    pthread_getschedparam(pthread_self(), &policy, &parameters);
    return parameters.sched_priority;
}

bool swallowsKill() {
    const std::lock_guard<std::mutex> guard(record().mutex);
    record().events.emplace_back("kill");
    record().killPriorities.push_back(ownPriority());
    return record().swallowedKills-- > 0;
}

// The next look must find the child gone, however busy the machine is.
void killAndWait(int processId) {
    kill(processId, SIGKILL);
    siginfo_t info{};
    waitid(P_PID, static_cast<id_t>(processId), &info, WEXITED | WNOWAIT);
}

} // namespace

void PlatformUtil::sleep(int milliseconds) noexcept {
    note("sleep " + std::to_string(milliseconds));
}

void ChildPause::pause(int milliseconds) noexcept {
    note("pause " + std::to_string(milliseconds));
}

int PlatformUtil::killProcess(int processId) noexcept {
    if (!swallowsKill())
        killAndWait(processId);
    return 0;
}

namespace test {

void RecordedPlatform::begin(int swallowedKills) {
    const std::lock_guard<std::mutex> guard(record().mutex);
    record().events.clear();
    record().killPriorities.clear();
    record().swallowedKills = swallowedKills;
}

std::vector<std::string> RecordedPlatform::events() {
    const std::lock_guard<std::mutex> guard(record().mutex);
    return record().events;
}

std::vector<int> RecordedPlatform::killPriorities() {
    const std::lock_guard<std::mutex> guard(record().mutex);
    return record().killPriorities;
}

} // namespace test
