#include "supplicant/ChildProcess.h"

#include "Paths.h"
#include "platform/ChildPause.h"
#include "platform/MutexGuard.h"
#include "platform/OnceWarning.h"
#include "platform/SpawnedChild.h"
#include "supplicant/PriorityBoost.h"
#include "supplicant/ResultFile.h"

#include <cstdio>
#include <sys/wait.h>
#include <unistd.h>

using platform::FileDescriptor;
using platform::SpawnedChild;

namespace platwifi {
namespace {

constexpr int MAX_POLLS = 100; // looks at a running child; it is killed at the last one
constexpr int POLL_PAUSE_MS = 50;
constexpr int AFTER_KILL_MS = 2000;
constexpr int SPAWN_BOOST = 20;
constexpr int KILL_BOOST = 25;

thread_local bool wasKilled = false;

void killHungChild(int child, const char* command) {
    wasKilled = true;
    const PriorityBoost boost(KILL_BOOST);
    std::fprintf(stderr,
                 "[ERROR] Process: %d, Thread %d in WifiUtilBsd::launchProcess(), command: %s -> "
                 "patience exhausted, killing: %d\n",
                 static_cast<int>(getpid()), PlatformUtil::threadId(), command ? command : "(null)",
                 child);
    PlatformUtil::killProcess(child);
}

// A client that died by a signal did not remove its end of the control connection.
void removeSocketOf(int child) {
    char path[64];
    std::snprintf(path, sizeof(path), paths::CLIENT_SOCKET_FORMAT, child);
    std::remove(path);
}

bool finish(int child, int status) {
    if (WIFSIGNALED(status))
        removeSocketOf(child);
    return WIFEXITED(status) && WEXITSTATUS(status) == 0;
}

void warnOfLostStatus() {
    static platform::OnceWarning warning;
    warning.print(
        "the exit status of a client was lost, so its command counts as failed: another part "
        "of this program waits for every child, or has the system drop them (SIGCHLD); "
        "let it wait for its own children alone, each by its process id");
}

bool waitForExit(SpawnedChild& child, const char* command) {
    if (!child.isStarted())
        return false;
    ChildPause untilNextLook(child.endingId());
    int pollsLeft = MAX_POLLS;
    for (;;) {
        const SpawnedChild::Look look = child.look();
        if (look == SpawnedChild::Look::LOST)
            warnOfLostStatus();
        if (look != SpawnedChild::Look::RUNNING)
            return look == SpawnedChild::Look::ENDED && finish(child.id(), child.status());
        if (--pollsLeft > 0) {
            untilNextLook.pause(POLL_PAUSE_MS);
            continue;
        }
        killHungChild(child.id(), command);
        untilNextLook.pause(AFTER_KILL_MS);
    }
}

SpawnedChild startChild(const ArgumentList& arguments, const FileDescriptor& output) {
    wasKilled = false;
    const PriorityBoost boost(SPAWN_BOOST);
    return SpawnedChild(arguments.program(), arguments.get(), output.number());
}

} // namespace

bool runChild(PlatformMutex& launchMutex, const ArgumentList& arguments, const char* command,
              const char* resultFile) {
    const MutexGuard guard(launchMutex);
    if (!resultFile || !arguments.isComplete())
        return false;
    FileDescriptor output = createResultFile(resultFile);
    if (!output.isOpen())
        return false;
    SpawnedChild child = startChild(arguments, output);
    output.close();
    return waitForExit(child, command);
}

bool runChild(PlatformMutex& launchMutex, const ArgumentList& arguments, const char* command,
              const FileDescriptor& output) {
    const MutexGuard guard(launchMutex);
    if (!output.isOpen() || !arguments.isComplete())
        return false;
    SpawnedChild child = startChild(arguments, output);
    return waitForExit(child, command);
}

bool lastChildWasKilled() noexcept {
    return wasKilled;
}

} // namespace platwifi
