#pragma once

#include "platform/Export.h"
#include "platform/FileDescriptor.h"

/// The pause between two looks at a child process. It ends early when that child ends.
///
/// Where the end of the child cannot be found out, which the constructor sees, a pause is a plain
/// PlatformUtil::sleep(). A pause reaps nothing; the caller does.
class PLATFORM_API ChildPause {
public:
    /// @param processId  a child of this process that has not been reaped yet
    explicit ChildPause(int processId) noexcept;

    /// Waits for the given milliseconds, or less when the child ends meanwhile. Only one pause of
    /// an object is shortened: a child that has ended but cannot be reaped yet, because a debugger
    /// holds it, must not turn the caller's loop into a busy one.
    void pause(int milliseconds) noexcept;

private:
    [[maybe_unused]] int m_child; ///< its process id, or 0 when the pauses are plain sleeps
    platform::FileDescriptor
        m_watch; ///< becomes readable when the child ends, where there is such a descriptor
};
