#include "AttachLock.h"

#include "GrowingPause.h"
#include "platform/PlatformUtil.h"

#include <cerrno>
#include <exception>
#include <fcntl.h>
#include <string>
#include <sys/stat.h>
#include <unistd.h>

namespace platform {
namespace {

using Clock = std::chrono::steady_clock;

constexpr std::chrono::seconds LIMIT{1};
constexpr std::chrono::milliseconds LONGEST_PAUSE{10};

// A record lock belongs to the process: this mutex excludes its other threads.
PlatformMutex threads = PTHREAD_MUTEX_INITIALIZER;

// A file of each user: in /tmp, a user must not open the files of others for writing.
std::string pathFor(const char* name) {
    return std::string("/tmp") + name + "." + std::to_string(geteuid()) + ".lock";
}

int openLockFile(const std::string& path) noexcept {
    constexpr int FLAGS = O_RDWR | O_CREAT | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC;
    return open(path.c_str(), FLAGS, S_IRUSR | S_IWUSR);
}

// Another user may have made a file of that name, to hold the lock for ever.
bool isOwn(int file) noexcept {
    struct stat status {};
    return fstat(file, &status) == 0 && S_ISREG(status.st_mode) && status.st_uid == geteuid();
}

bool isHeldElsewhere(int error) noexcept {
    return error == EAGAIN || error == EACCES;
}

int tryLock(int file) noexcept {
    struct flock lock {};
    lock.l_type = F_WRLCK;
    lock.l_whence = SEEK_SET;
    return fcntl(file, F_SETLK, &lock) == 0 ? 0 : errno;
}

// F_SETLKW would wait without a limit for a process that is stopped.
int lockUntil(int file, Clock::time_point deadline) noexcept {
    GrowingPause pause(deadline, LONGEST_PAUSE);
    int error = tryLock(file);
    while (isHeldElsewhere(error) && pause.next())
        error = tryLock(file);
    return isHeldElsewhere(error) ? EAGAIN : error;
}

} // namespace

AttachLock::AttachLock(const char* name) noexcept {
    try {
        m_error = take(name);
    } catch (const std::exception&) {
        m_error = ENOMEM;
    }
}

// The file is closed, which ends the lock, while no other thread of this process has it.
AttachLock::~AttachLock() {
    m_file.close();
    if (m_isFirst)
        PlatformUtil::unlockMutex(&threads);
}

int AttachLock::take(const char* name) {
    const Clock::time_point deadline = Clock::now() + LIMIT;
    m_isFirst = PlatformUtil::lockMutexUntil(&threads, deadline) == 0;
    if (!m_isFirst)
        return EAGAIN;
    m_file = FileDescriptor(openLockFile(pathFor(name)));
    if (!m_file.isOpen())
        return errno;
    return isOwn(m_file.number()) ? lockUntil(m_file.number(), deadline) : EACCES;
}

} // namespace platform
