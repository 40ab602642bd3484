#include "platform/FolderClaim.h"

#include "LockFile.h"

#include <fcntl.h>

namespace platform {

FolderClaim::FolderClaim(const char* folder, std::uint32_t number) noexcept
    : m_folder(open(folder, O_RDONLY | O_DIRECTORY | O_CLOEXEC)), m_number(number) {
    if (m_folder.isOpen() && !lockfile::claim(m_folder.number(), number))
        m_folder.close();
}

FolderClaim::~FolderClaim() {
    if (isHeld())
        lockfile::release(m_folder.number(), m_number);
}

bool FolderClaim::sees(std::uint32_t number) const noexcept {
    return isHeld() && lockfile::isClaimed(m_folder.number(), number, number == m_number ? 1 : 0);
}

} // namespace platform
