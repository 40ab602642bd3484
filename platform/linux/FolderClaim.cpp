#include "platform/FolderClaim.h"

#include <fcntl.h>
#include <unistd.h>

namespace platform {
namespace {

// A lock on one byte of the folder, at the offset `number`. A folder has no bytes, but the kernel
// allows locks on them.
struct flock byteLock(short type, std::uint32_t number) noexcept {
    struct flock lock {};
    lock.l_type = type;
    lock.l_whence = SEEK_SET;
    lock.l_start = static_cast<off_t>(number);
    lock.l_len = 1;
    return lock;
}

} // namespace

// An open file description lock. A process lock would end as soon as any thread closed the folder.
// A folder can only be opened for reading, so these are read locks, which do not exclude each
// other.
FolderClaim::FolderClaim(const char* folder, std::uint32_t number) noexcept
    : m_folder(open(folder, O_RDONLY | O_DIRECTORY | O_CLOEXEC)), m_number(number) {
    struct flock lock = byteLock(F_RDLCK, number);
    if (m_folder.isOpen() && fcntl(m_folder.number(), F_OFD_SETLK, &lock) != 0)
        m_folder.close();
}

FolderClaim::~FolderClaim() = default;

// Asks whether a write lock would fail. Only a lock of another open file description makes it fail.
bool FolderClaim::sees(std::uint32_t number) const noexcept {
    struct flock lock = byteLock(F_WRLCK, number);
    return m_folder.isOpen() && fcntl(m_folder.number(), F_OFD_GETLK, &lock) == 0 &&
           lock.l_type != F_UNLCK;
}

} // namespace platform
