#include "platform/SharedMemory.h"

#include "common/ShmObject.h"
#include "platform/OnceWarning.h"

#include <string>
#include <sys/mman.h>
#include <system_error>
#include <unistd.h>

namespace platform {
namespace {

void warnOfFailure(const char* name, int error) {
    static OnceWarning warning;
    warning.print(std::string("the shared memory object ") + (name ? name : "") +
                  " cannot be used (" + std::system_category().message(error) +
                  "); this process and others do not notice each other's saves; look at it, at "
                  "the rights of /dev/shm and at the limit on the size of a file (ulimit -f)");
}

} // namespace

bool looksLikeObject(const struct stat& status, std::size_t size) noexcept {
    const bool hasContents = S_ISREG(status.st_mode) || S_TYPEISSHM(&status);
    return hasContents && status.st_size == static_cast<off_t>(size);
}

bool isTrusted(const struct stat& status) noexcept {
    return status.st_uid == 0 || status.st_uid == geteuid();
}

void warnOfReplacement(const char* name, const struct stat& status, std::size_t size) {
    static OnceWarning warning;
    if (!looksLikeObject(status, size) || isTrusted(status))
        return;
    warning.print(std::string("the shared memory object ") + name + " of user " +
                  std::to_string(status.st_uid) +
                  " is replaced; running processes of that user and this one do not notice each "
                  "other's saves; run all of them as one user");
}

bool SharedMemory::map(int file, std::size_t size) noexcept {
    detach();
    if (!reserveSpace(file, size))
        return false;
    void* const memory = mmap(nullptr, size, PROT_READ | PROT_WRITE, MAP_SHARED, file, 0);
    if (memory == MAP_FAILED)
        return false;
    m_data = memory;
    m_size = size;
    return true;
}

bool SharedMemory::make(int file, std::size_t size, SetUp setUp) noexcept {
    return ftruncate(file, static_cast<off_t>(size)) == 0 && map(file, size) && setUp(m_data);
}

// No value when the object must be replaced.
std::optional<SharedMemory::Joining> SharedMemory::tryJoin(int file, std::size_t size,
                                                           Join join) noexcept {
    if (!map(file, size))
        return std::nullopt;
    const Joining joining = join(m_data);
    return joining == Joining::REFUSED ? std::nullopt : std::optional(joining);
}

SharedMemory::Result SharedMemory::fail(const char* name, int error) noexcept {
    warnOfFailure(name, error);
    return giveUp();
}

SharedMemory::Result SharedMemory::giveUp() noexcept {
    detach();
    return Result::FAILED;
}

void SharedMemory::detach() noexcept {
    if (m_data)
        munmap(m_data, m_size);
    m_data = nullptr;
}

void SharedMemory::unlink(const char* name) noexcept {
    if (name)
        shm_unlink(name);
}

} // namespace platform
