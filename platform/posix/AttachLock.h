#pragma once

#include "platform/FileDescriptor.h"

namespace platform {

/// The right to look at the names of shared memory objects, and to give one to a new object. Of the processes of a
/// user, one has it at a time, for as long as this object exists. It ends with the process, however that ends.
class AttachLock {
public:
    /// Waits for a second at most.
    AttachLock() noexcept;
    ~AttachLock();

    AttachLock(const AttachLock&) = delete;
    AttachLock& operator=(const AttachLock&) = delete;

    /// 0, or why this process does not have the lock: EAGAIN when another one holds it.
    int error() const noexcept { return m_error; }

private:
    int take() noexcept;

    bool m_isFirst = false; ///< of the threads of this process
    FileDescriptor m_folder;
    int m_error;
};

} // namespace platform
