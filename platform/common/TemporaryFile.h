#pragma once

#include "platform/FileDescriptor.h"

#include <string>
#include <sys/types.h>

namespace platform {

/// A new file with a name that no other file has. The name is removed with the object.
class TemporaryFile {
public:
    /// @param beginning  of its path; a unique end is added
    /// @param mode       its permissions, minus the umask
    TemporaryFile(const std::string& beginning, mode_t mode);
    ~TemporaryFile();

    TemporaryFile(const TemporaryFile&) = delete;
    TemporaryFile& operator=(const TemporaryFile&) = delete;

    /// Whether there is a file; if not, the constructor has set errno.
    bool isOpen() const noexcept { return m_file.isOpen(); }

    /// Open for reading and writing, closed in programs that this process starts.
    int number() const noexcept { return m_file.number(); }

    const std::string& path() const noexcept { return m_path; }

    /// Returns the file, which has no name from now on.
    FileDescriptor release() noexcept;

private:
    void removeName() const noexcept;

    std::string m_path;
    FileDescriptor m_file;
};

} // namespace platform
