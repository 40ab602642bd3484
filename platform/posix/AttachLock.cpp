#include "AttachLock.h"

#include "GrowingPause.h"
#include "LockFile.h"
#include "platform/FolderClaim.h"
#include "platform/PlatformUtil.h"

#include <cerrno>
#include <fcntl.h>

namespace platform {
namespace {

using Clock = std::chrono::steady_clock;

constexpr std::chrono::seconds LIMIT{1};
constexpr std::chrono::milliseconds LONGEST_PAUSE{10};
constexpr const char* FOLDER = "/tmp";
constexpr std::uint32_t BYTE =
    FolderClaim::MAX_NUMBER + 1; // of the lock file; those before are for claims

// The lock belongs to the process: this mutex excludes its other threads.
PlatformMutex threads = PTHREAD_MUTEX_INITIALIZER;

// F_SETLKW would wait without a limit for a process that is stopped.
int lockUntil(int folder, Clock::time_point deadline) noexcept {
    GrowingPause pause(deadline, LONGEST_PAUSE);
    int error = lockfile::tryLock(folder, BYTE);
    while (error == EAGAIN && pause.next())
        error = lockfile::tryLock(folder, BYTE);
    return error;
}

} // namespace

AttachLock::AttachLock() noexcept : m_error(take()) {}

AttachLock::~AttachLock() {
    if (m_error == 0)
        lockfile::unlock(m_folder.number(), BYTE);
    if (m_isFirst)
        PlatformUtil::unlockMutex(&threads);
}

int AttachLock::take() noexcept {
    const Clock::time_point deadline = Clock::now() + LIMIT;
    m_isFirst = PlatformUtil::lockMutexUntil(&threads, deadline) == 0;
    if (!m_isFirst)
        return EAGAIN;
    m_folder = FileDescriptor(open(FOLDER, O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    return m_folder.isOpen() ? lockUntil(m_folder.number(), deadline) : errno;
}

} // namespace platform
