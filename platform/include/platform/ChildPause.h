#pragma once

#include "platform/Export.h"
#include "platform/FileDescriptor.h"

/// The pause between two looks at a child process, ended early when that child ends.
///
/// Where the system cannot tell that a child has ended (found out when the object is made), a pause
/// is a plain PlatformUtil::sleep(). Reaping stays with the caller: a pause takes no exit status
/// and touches no other child.
class PLATFORM_API ChildPause {
public:
    /// @param processId  a child of this process that has not been reaped yet
    explicit ChildPause(int processId) noexcept;

    /// Waits for the given milliseconds, or less when the child ends meanwhile. Only one pause is
    /// ever cut short: a child that has ended but cannot be reaped yet (a debugger holds it) is
    /// waited for at the full pace.
    void pause(int milliseconds) noexcept;

private:
    platform::FileDescriptor m_watch; ///< becomes readable at the child's end
};
