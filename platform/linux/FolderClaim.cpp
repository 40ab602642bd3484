#include "platform/FolderClaim.h"

#include <fcntl.h>
#include <unistd.h>

namespace platform {
namespace {

// The byte of the folder with this number. A folder has no bytes, but takes locks on them.
struct flock byteLock(short type, std::uint32_t number) noexcept {
    struct flock lock {};
    lock.l_type = type;
    lock.l_whence = SEEK_SET;
    lock.l_start = static_cast<off_t>(number);
    lock.l_len = 1;
    return lock;
}

} // namespace

// A lock of the open file, not of the process: such a one would end as soon as any thread closed the
// folder. A folder opens for reading alone, so that there are read locks only, which all fit together.
FolderClaim::FolderClaim(const char* folder, std::uint32_t number) noexcept
    : m_folder(open(folder, O_RDONLY | O_DIRECTORY | O_CLOEXEC)) {
    struct flock lock = byteLock(F_RDLCK, number);
    if (m_folder.isOpen() && fcntl(m_folder.number(), F_OFD_SETLK, &lock) != 0)
        m_folder.close();
}

// What would keep this file from a write lock is a lock of another open file.
bool FolderClaim::sees(std::uint32_t number) const noexcept {
    struct flock lock = byteLock(F_WRLCK, number);
    return m_folder.isOpen() && fcntl(m_folder.number(), F_OFD_GETLK, &lock) == 0 &&
           lock.l_type != F_UNLCK;
}

} // namespace platform
