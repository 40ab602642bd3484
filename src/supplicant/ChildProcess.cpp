#include "supplicant/ChildProcess.h"

#include "platform/ChildPause.h"
#include "platform/OnceWarning.h"
#include "platform/PlatformUtil.h"
#include "supplicant/PriorityBoost.h"

#include <cstdio>
#include <sys/wait.h>
#include <unistd.h>

using platform::FileDescriptor;
using platform::SpawnedChild;

namespace platwifi {
namespace {

constexpr int PATIENCE = 100; // looks at a running child before it is killed
constexpr int POLL_PAUSE_MS = 50;
constexpr int AFTER_KILL_MS = 2000;
constexpr int SPAWN_BOOST = 20;
constexpr int KILL_BOOST = 25;

void killImpatiently(int child, const char* command) {
    const PriorityBoost boost(KILL_BOOST);
    std::fprintf(stderr,
                 "[ERROR] Process: %d, Thread %d in WifiUtilBsd::launchProcess(), command: %s -> "
                 "patience exhausted, killing: %d\n",
                 static_cast<int>(getpid()), PlatformUtil::threadId(), command ? command : "(null)",
                 child);
    PlatformUtil::killProcess(child);
}

bool succeeded(int status) {
    return WIFEXITED(status) && WEXITSTATUS(status) == 0;
}

// A client that is killed cannot remove its end of the control connection, and nobody else would.
void removeSocketOf(int child) {
    char path[64];
    std::snprintf(path, sizeof(path), "/tmp/wpa_ctrl_%d-1", child);
    std::remove(path);
}

bool judge(int child, int status) {
    if (WIFSIGNALED(status))
        removeSocketOf(child);
    return succeeded(status);
}

// A status that is lost says nothing, so the command counts as failed.
void warnOfLostStatus() {
    static platform::OnceWarning warning;
    warning.print(
        "the exit status of a client was lost, so its command counts as failed: another part "
        "of this program waits for every child, or has the system drop them (SIGCHLD); "
        "let it wait for its own children alone, each by its process id");
}

} // namespace

ArgumentVector::ArgumentVector(const char* path, const char* interfaceArg, const char* command,
                               const char* arg1, const char* arg2, const char* arg3) noexcept {
    add(path);
    add(interfaceArg);
    if (!command)
        return;
    add(command);
    if (!arg1)
        return;
    add(arg1);
    add(arg2);
    add(arg3);
}

void ArgumentVector::add(const char* entry) noexcept {
    if (entry)
        m_entries[m_count++] = entry;
}

SpawnedChild startChild(const char* path, const ArgumentVector& arguments,
                        const FileDescriptor& output) {
    const PriorityBoost boost(SPAWN_BOOST);
    return SpawnedChild(path, arguments.get(), output.number());
}

bool waitWithPatience(SpawnedChild& child, const char* command) {
    ChildPause untilNextLook(child.endingId());
    int patience = PATIENCE;
    for (;;) {
        const SpawnedChild::Look look = child.look();
        if (look == SpawnedChild::Look::LOST)
            warnOfLostStatus();
        if (look != SpawnedChild::Look::RUNNING)
            return look == SpawnedChild::Look::ENDED && judge(child.id(), child.status());
        if (--patience > 0) {
            untilNextLook.pause(POLL_PAUSE_MS);
            continue;
        }
        killImpatiently(child.id(), command);
        untilNextLook.pause(AFTER_KILL_MS);
    }
}

} // namespace platwifi
