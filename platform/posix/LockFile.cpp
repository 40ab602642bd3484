#include "LockFile.h"

#include "platform/FileDescriptor.h"
#include "platform/MutexGuard.h"

#include <cerrno>
#include <cstdio>
#include <exception>
#include <fcntl.h>
#include <map>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

namespace platform::lockfile {
namespace {

PlatformMutex mutex = PTHREAD_MUTEX_INITIALIZER; // of all that follows

struct LockFile {
    FileDescriptor file;
    pid_t process = getpid(); // whose locks are counted
    std::map<std::uint32_t, int> claims;
    int locks = 0;
};

// Another user may have made a file of that name, to hold the locks for ever. A file that was removed has locks that
// other processes do not see.
bool isUsable(const FileDescriptor& file) noexcept {
    struct stat status {};
    return file.isOpen() && fstat(file.number(), &status) == 0 && S_ISREG(status.st_mode) &&
           status.st_uid == geteuid() && status.st_nlink > 0;
}

// A file of each user: in /tmp, a user must not open the files of others for writing.
FileDescriptor openLockFile(int folder) noexcept {
    constexpr int FLAGS = O_RDWR | O_CREAT | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC;
    char name[64];
    std::snprintf(name, sizeof(name), "platwifi.%lu.lock", static_cast<unsigned long>(geteuid()));
    FileDescriptor file(openat(folder, name, FLAGS, S_IRUSR | S_IWUSR));
    if (file.isOpen() && !isUsable(file)) {
        file.close();
        errno = EACCES;
    }
    return file;
}

struct flock lockOn(std::uint32_t byte, int type) noexcept {
    struct flock lock {};
    lock.l_type = static_cast<short>(type);
    lock.l_whence = SEEK_SET;
    lock.l_start = static_cast<off_t>(byte);
    lock.l_len = 1;
    return lock;
}

int setLock(const FileDescriptor& file, std::uint32_t byte, int type) noexcept {
    struct flock lock = lockOn(byte, type);
    return fcntl(file.number(), F_SETLK, &lock) == 0 ? 0 : errno;
}

// That of the folder, with its file open. Never destroyed: other threads may use it while the process ends. A process
// that was forked has none of its parent's locks. Throws when there is no memory.
LockFile& lockFileOf(int folder) {
    static auto& files = *new std::map<std::pair<dev_t, ino_t>, LockFile>;
    struct stat status {};
    fstat(folder, &status);
    LockFile& found = files[{status.st_dev, status.st_ino}];
    if (found.process != getpid())
        found = LockFile();
    if (!isUsable(found.file)) {
        found.file = openLockFile(folder);
        for (const auto& [byte, count] : found.claims)
            setLock(found.file, byte, F_RDLCK);
    }
    return found;
}

void closeUnused(LockFile& found) noexcept {
    if (found.claims.empty() && found.locks == 0)
        found.file.close();
}

bool addClaim(LockFile& found, std::uint32_t byte) {
    const bool isFirst = found.claims.count(byte) == 0;
    ++found.claims[byte];
    if (!isFirst || setLock(found.file, byte, F_RDLCK) == 0)
        return true;
    found.claims.erase(byte);
    closeUnused(found);
    return false;
}

bool removeClaim(LockFile& found, std::uint32_t byte) {
    const auto claim = found.claims.find(byte);
    if (claim == found.claims.end() || --claim->second > 0)
        return true;
    found.claims.erase(claim);
    setLock(found.file, byte, F_UNLCK);
    closeUnused(found);
    return true;
}

bool hasClaim(const LockFile& found, std::uint32_t byte, int own) {
    const auto claim = found.claims.find(byte);
    if (claim != found.claims.end() && claim->second > own)
        return true;
    struct flock lock = lockOn(byte, F_WRLCK);
    return fcntl(found.file.number(), F_GETLK, &lock) == 0 && lock.l_type != F_UNLCK;
}

int addLock(LockFile& found, std::uint32_t byte) {
    if (!found.file.isOpen())
        return errno;
    const int error = setLock(found.file, byte, F_WRLCK);
    if (error == 0)
        ++found.locks;
    closeUnused(found);
    return error == EACCES ? EAGAIN : error;
}

bool removeLock(LockFile& found, std::uint32_t byte) {
    --found.locks;
    setLock(found.file, byte, F_UNLCK);
    closeUnused(found);
    return true;
}

// Calls `action` with the lock file of the folder and the arguments, or returns `failure` without memory.
template <typename Result, typename Action, typename... Arguments>
Result with(int folder, Result failure, Action action, Arguments... arguments) noexcept {
    const MutexGuard guard(mutex);
    try {
        return action(lockFileOf(folder), arguments...);
    } catch (const std::exception&) {
        return failure;
    }
}

} // namespace

bool claim(int folder, std::uint32_t byte) noexcept {
    return with(folder, false, addClaim, byte);
}

void release(int folder, std::uint32_t byte) noexcept {
    with(folder, false, removeClaim, byte);
}

bool isClaimed(int folder, std::uint32_t byte, int own) noexcept {
    return with(folder, false, hasClaim, byte, own);
}

int tryLock(int folder, std::uint32_t byte) noexcept {
    return with(folder, ENOMEM, addLock, byte);
}

void unlock(int folder, std::uint32_t byte) noexcept {
    with(folder, false, removeLock, byte);
}

} // namespace platform::lockfile
