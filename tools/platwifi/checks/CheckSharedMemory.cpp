// The memory through which processes tell each other that the networks have changed.

#include "checks/CheckFunctions.h"
#include "process/OtherProcesses.h"
#include "watchdog/SharedSignalBlock.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace cli {
namespace {

constexpr off_t SIZE = sizeof(SharedSignalBlock); // nothing else is used of it here

std::string toRemove() {
    return std::string("remove it as root: rm ") + BLOCK_PATH +
           "; then restart the processes that use the library";
}

std::string path(const char* more) {
    return BLOCK_PATH + std::string(more);
}

// What the library would not share, in the order in which it looks.
Finding notShared(const struct stat& status) {
    if (!S_ISREG(status.st_mode))
        return bad(path(" is no shared memory: it is not a regular file"), toRemove());
    if (status.st_size != SIZE) {
        return bad(path(" was made by another build: it has ") + std::to_string(status.st_size) +
                       " bytes, not " + std::to_string(SIZE),
                   toRemove());
    }
    return bad(path(" belongs to another user: processes do not hear of each other's changes"),
               "let all of them run as one user, then " + toRemove());
}

bool isOurs(const struct stat& status) {
    const bool isTrusted = status.st_uid == 0 || status.st_uid == geteuid();
    return isTrusted && S_ISREG(status.st_mode) && status.st_size == SIZE;
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
    return note(path(" was left behind by a process that died: nobody uses it"),
                std::string("nothing, as the next process takes it over; or: rm ") + BLOCK_PATH);
}

} // namespace

Finding checkSharedMemory(const std::string&) {
    struct stat status {};
    if (lstat(BLOCK_PATH, &status) != 0)
        return good("none: it is made when a process loads the networks");
    if (!isOurs(status))
        return notShared(status);
    if (faccessat(AT_FDCWD, BLOCK_PATH, R_OK | W_OK, AT_EACCESS) != 0)
        return bad(path(" is closed to this user: processes do not hear of its changes"),
                   "run platwifi as the user whom the other processes run as");
    return usage(status);
}

} // namespace cli
