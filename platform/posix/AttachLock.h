#pragma once

#include "platform/FileDescriptor.h"

namespace platform {

/// The right to look at the name of a shared memory object and to give it to a new one. Of the processes of a user,
/// one has it at a time, for as long as the object exists. It ends with the process, however that ends.
///
/// It is a record lock on a file in /tmp, which stays: another process may be about to lock it.
class AttachLock {
public:
    /// Waits for a second at most.
    /// @param name  of the object, beginning with "/"
    explicit AttachLock(const char* name) noexcept;
    ~AttachLock();

    AttachLock(const AttachLock&) = delete;
    AttachLock& operator=(const AttachLock&) = delete;

    /// 0, or why this process does not have the lock: EAGAIN when another one holds it.
    int error() const noexcept { return m_error; }

private:
    int take(const char* name);

    bool m_isFirst = false; ///< of the threads of this process
    FileDescriptor m_file;
    int m_error = 0;
};

} // namespace platform
