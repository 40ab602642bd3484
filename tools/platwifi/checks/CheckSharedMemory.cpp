// The shared memory through which processes notify each other of a save.

#include "checks/CheckFunctions.h"
#include "process/SharedBlock.h"
#include "watchdog/SharedSignalBlock.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace cli {
namespace {

constexpr off_t BLOCK_SIZE = sizeof(SharedSignalBlock);

std::string removal() {
    return std::string("remove it as root: rm ") + BLOCK_PATH +
           "; then restart the processes that use the library";
}

std::string blockPathAnd(const char* rest) {
    return BLOCK_PATH + std::string(rest);
}

// Why the library does not use this object, in the order of its own checks.
Finding rejected(const struct stat& status) {
    if (!S_ISREG(status.st_mode))
        return bad(blockPathAnd(" is no shared memory: it is not a regular file"), removal());
    if (status.st_size != BLOCK_SIZE) {
        return bad(blockPathAnd(" was made by another build: it has ") +
                       std::to_string(status.st_size) + " bytes, not " + std::to_string(BLOCK_SIZE),
                   removal());
    }
    return bad(
        blockPathAnd(" belongs to another user: processes do not hear of each other's changes"),
        "let all of them run as one user, then " + removal());
}

bool isAccepted(const struct stat& status) {
    const bool isTrusted = status.st_uid == 0 || status.st_uid == geteuid();
    return isTrusted && S_ISREG(status.st_mode) && status.st_size == BLOCK_SIZE;
}

std::string listOf(const std::vector<pid_t>& processes) {
    std::string text;
    for (const pid_t process : processes)
        text += " " + std::to_string(process);
    return text;
}

Finding usage(const struct stat& status) {
    const std::vector<pid_t> sharers = sharersOfBlock();
    if (!sharers.empty())
        return good((sharers.size() == 1 ? "used by process" : "used by processes") +
                    listOf(sharers));
    if (status.st_uid != geteuid())
        return good("there, and open to this user; root can see who uses it");
    return note(blockPathAnd(" was left behind by a process that died: no process uses it"),
                std::string("nothing, as the next process takes it over; or: rm ") + BLOCK_PATH);
}

} // namespace

Finding checkSharedMemory(const std::string&) {
    struct stat status {};
    if (lstat(BLOCK_PATH, &status) != 0)
        return good("none: it is made when a process loads the networks");
    if (!isAccepted(status))
        return rejected(status);
    if (faccessat(AT_FDCWD, BLOCK_PATH, R_OK | W_OK, AT_EACCESS) != 0)
        return bad(blockPathAnd(" is closed to this user: processes do not hear of its changes"),
                   "run platwifi as the user whom the other processes run as");
    return usage(status);
}

} // namespace cli
