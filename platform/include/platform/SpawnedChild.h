#pragma once

#include "platform/Export.h"
#include "platform/FileDescriptor.h"

namespace platform {

/// A program that runs as a child process, from its start until its exit status is known.
///
/// When this process ignores SIGCHLD, or handles it with SA_NOCLDWAIT, the system discards the
/// status of its children. In that case an intermediate process, forked from this one, starts the
/// program, waits for it and sends its status through a pipe. No signal disposition of this process
/// is changed.
///
/// An object belongs to one thread at a time. Nothing throws.
class PLATFORM_API SpawnedChild {
public:
    enum class Look {
        RUNNING,
        ENDED, ///< the status is known, and nothing of the child is left
        LOST   ///< its status can no longer be known, whether or not it has ended
    };

    /// Starts a program as Spawn::start() does.
    SpawnedChild(const char* path, const char* const arguments[], int output) noexcept;

    SpawnedChild(const SpawnedChild&) = delete;
    SpawnedChild& operator=(const SpawnedChild&) = delete;

    /// Whether it was started; if not, the constructor has set errno.
    bool isStarted() const noexcept { return m_id != -1; }

    /// The program's process id.
    int id() const noexcept { return m_id; }

    /// The process whose end makes the status available, for a ChildPause: the program or the
    /// intermediate process.
    int endingId() const noexcept { return m_endingId; }

    /// Checks the child without waiting. Must not be called again after ENDED and LOST.
    Look look() noexcept;

    /// Its status as from waitpid(). Valid only after ENDED.
    int status() const noexcept { return m_status; }

private:
    void startReported(const char* path, const char* const arguments[], int output);

    FileDescriptor m_report; ///< the pipe of the intermediate process; closed when there is none
    int m_id = -1;
    int m_endingId = -1;
    int m_status = 0;
};

} // namespace platform
