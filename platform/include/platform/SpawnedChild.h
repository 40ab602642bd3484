#pragma once

#include "platform/Export.h"
#include "platform/FileDescriptor.h"

namespace platform {

/// A program that runs as a child process, from its start until its status is known.
///
/// A program may ignore SIGCHLD, or handle it with SA_NOCLDWAIT; the system then drops the status of its
/// children. The child is then started by a process in between, a copy of this one that waits for it and
/// hands its status over. No signal's disposition is changed in this process.
///
/// An object belongs to one thread at a time. Nothing throws.
class PLATFORM_API SpawnedChild {
public:
    enum class Look {
        RUNNING,
        ENDED, ///< the status is known, and nothing of the child is left
        LOST   ///< it has ended or not, but its status will never be known
    };

    /// Starts a program as Spawn::start() does.
    SpawnedChild(const char* path, const char* const arguments[], int output) noexcept;

    SpawnedChild(const SpawnedChild&) = delete;
    SpawnedChild& operator=(const SpawnedChild&) = delete;

    /// Whether it was started; if not, errno was set.
    bool isStarted() const noexcept { return m_id != -1; }

    /// The program's process id.
    int id() const noexcept { return m_id; }

    /// The process that ends when the status can be had, for a ChildPause: the program, or the process
    /// in between.
    int endingId() const noexcept { return m_endingId; }

    /// Looks at the child without waiting. Not to be called again after ENDED and LOST.
    Look look() noexcept;

    /// How it ended, as waitpid() says it: after ENDED alone.
    int status() const noexcept { return m_status; }

private:
    void startReported(const char* path, const char* const arguments[], int output);

    FileDescriptor m_report; ///< where the status comes from, unless it is had by waitpid()
    int m_id = -1;
    int m_endingId = -1;
    int m_status = 0;
};

} // namespace platform
