#include "platform/SharedMemory.h"

#include "AttachLock.h"
#include "common/FileSizeLimit.h"
#include "common/ShmObject.h"
#include "platform/FileDescriptor.h"

#include <cerrno>
#include <fcntl.h>
#include <sys/mman.h>

namespace platform {
namespace {

/// What has the name; the file is closed when there is nothing, or it cannot be opened.
struct ShmEntry {
    FileDescriptor file;
    struct stat status;
};

ShmEntry lookUp(const char* name) noexcept {
    ShmEntry entry{FileDescriptor(shm_open(name, O_RDWR, 0)), {}};
    if (entry.file.isOpen() && fstat(entry.file.number(), &entry.status) != 0)
        entry.file.close();
    return entry;
}

bool isJoinable(const ShmEntry& entry, std::size_t size) noexcept {
    return entry.file.isOpen() && looksLikeObject(entry.status, size) && isTrusted(entry.status);
}

// Takes the name from what has it, if anything. Returns an error number.
int replace(const char* name, const ShmEntry& entry, std::size_t size) {
    if (shm_unlink(name) != 0)
        return errno == ENOENT ? 0 : errno;
    if (entry.file.isOpen())
        warnOfReplacement(name, entry.status, size);
    return 0;
}

} // namespace

// The last three: for this kind of object nothing can be reserved.
bool reserveSpace(int file, std::size_t size) noexcept {
    int error = 0;
    do
        error = posix_fallocate(file, 0, static_cast<off_t>(size));
    while (error == EINTR);
    return error == 0 || error == EINVAL || error == ENODEV || error == EOPNOTSUPP;
}

// POSIX gives an object its name before its contents. So a process looks at the name only while it holds the lock, and
// finds a finished object, or one whose maker was killed. Returns an error number.
int SharedMemory::publish(const char* name, std::size_t size, SetUp setUp) noexcept {
    if (!mayGrowTo(size))
        return EFBIG;
    const FileDescriptor file(shm_open(name, O_RDWR | O_CREAT | O_EXCL, SHM_MODE));
    if (!file.isOpen())
        return errno;
    if (make(file.number(), size, setUp))
        return 0;
    shm_unlink(name);
    return ENOTSUP;
}

SharedMemory::Result SharedMemory::attach(const char* name, std::size_t size, SetUp setUp,
                                          Join join) noexcept {
    detach();
    if (!name || *name != '/')
        return fail(name, EINVAL);
    const AttachLock lock;
    if (lock.error() != 0)
        return fail(name, lock.error());
    const ShmEntry entry = lookUp(name);
    if (isJoinable(entry, size)) {
        if (const auto joining = tryJoin(entry.file.number(), size, join))
            return *joining == Joining::JOINED ? Result::JOINED : giveUp();
    }
    int error = replace(name, entry, size);
    if (error == 0)
        error = publish(name, size, setUp);
    return error == 0 ? Result::CREATED : fail(name, error);
}

} // namespace platform
