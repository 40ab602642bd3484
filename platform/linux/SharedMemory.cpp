#include "platform/SharedMemory.h"

#include "common/FileSizeLimit.h"
#include "common/ShmObject.h"
#include "common/TemporaryFile.h"
#include "platform/FileDescriptor.h"
#include "platform/PlatformUtil.h"

#include <cerrno>
#include <fcntl.h>
#include <string>
#include <sys/file.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

namespace platform {
namespace {

constexpr const char* FOLDER = "/dev/shm"; // where shm_open() keeps its objects
constexpr int ATTEMPTS = 100;
constexpr int PAUSE_MILLISECONDS = 10;

std::string pathOf(const char* name) {
    return std::string(FOLDER) + name;
}

/// The object, or any other file, that has a name.
struct ShmEntry {
    FileDescriptor file; ///< closed when it cannot be opened
    struct stat status;
    bool exists;
};

// The status of an entry that cannot be opened is read before the attempt: afterwards the name may
// belong to a new object of another process.
ShmEntry lookUp(const char* name) {
    ShmEntry entry{FileDescriptor(), {}, false};
    entry.exists = lstat(pathOf(name).c_str(), &entry.status) == 0;
    if (entry.exists)
        entry.file = FileDescriptor(shm_open(name, O_RDWR, 0));
    if (entry.file.isOpen())
        fstat(entry.file.number(), &entry.status);
    return entry;
}

bool isJoinable(const ShmEntry& entry, std::size_t size) noexcept {
    return entry.file.isOpen() && looksLikeObject(entry.status, size) && isTrusted(entry.status);
}

// Removes the entry `stale` that was found under the name, but no later one: every process that
// does this holds the lock of the folder. Returns an error number.
int unlinkStale(const char* name, const struct stat& stale) {
    const FileDescriptor folder(open(FOLDER, O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (flock(folder.number(), LOCK_EX | LOCK_NB) != 0)
        return errno;
    const std::string path = pathOf(name);
    struct stat now {};
    if (lstat(path.c_str(), &now) != 0 || now.st_ino != stale.st_ino || now.st_dev != stale.st_dev)
        return 0;
    return ::unlink(path.c_str()) == 0 || errno == ENOENT ? 0 : errno;
}

/// A file without any name. The kernel removes it with its last user.
class AnonymousFile {
public:
    AnonymousFile() : m_file(open(FOLDER, O_TMPFILE | O_RDWR | O_CLOEXEC, SHM_MODE)) {}

    int number() const noexcept { return m_file.number(); }
    std::string path() const { return "/proc/self/fd/" + std::to_string(number()); }

private:
    FileDescriptor m_file;
};

// Gives the file the name of the object. Returns an error number: EEXIST when another process was first.
template <typename File>
int linkTo(const File& file, const char* name) {
    return linkat(AT_FDCWD, file.path().c_str(), AT_FDCWD, pathOf(name).c_str(),
                  AT_SYMLINK_FOLLOW) == 0
               ? 0
               : errno;
}

// No error, or one that another attempt may overcome: another process was first, or holds the lock
// of the folder.
bool mayTryAgain(int error) noexcept {
    return error == 0 || error == EEXIST || error == EWOULDBLOCK;
}

// unlinkStale(), with the warning.
int replace(const char* name, const struct stat& stale, std::size_t size) {
    const int error = unlinkStale(name, stale);
    if (error == 0)
        warnOfReplacement(name, stale, size);
    return error;
}

} // namespace

bool reserveSpace(int file, std::size_t size) noexcept {
    while (fallocate(file, 0, 0, static_cast<off_t>(size)) != 0) {
        if (errno != EINTR)
            return errno == EOPNOTSUPP;
    }
    return true;
}

// The temporary name is for an old kernel or a system without /proc. Returns an error number: EEXIST when another
// process was first.
int SharedMemory::publish(const char* name, std::size_t size, SetUp setUp) noexcept {
    if (!mayGrowTo(size))
        return EFBIG;
    const AnonymousFile unnamed;
    if (make(unnamed.number(), size, setUp)) {
        const int error = linkTo(unnamed, name);
        if (error == 0 || error == EEXIST)
            return error;
    }
    const TemporaryFile temporary(pathOf(name), SHM_MODE);
    return make(temporary.number(), size, setUp) ? linkTo(temporary, name) : ENOTSUP;
}

SharedMemory::Result SharedMemory::attach(const char* name, std::size_t size, SetUp setUp,
                                          Join join) noexcept {
    detach();
    int error = name && *name == '/' ? 0 : EINVAL;
    for (int attempt = 0; attempt < ATTEMPTS && mayTryAgain(error); ++attempt) {
        if (error == EWOULDBLOCK)
            PlatformUtil::sleep(PAUSE_MILLISECONDS);
        const ShmEntry entry = lookUp(name);
        if (isJoinable(entry, size)) {
            if (const auto joining = tryJoin(entry.file.number(), size, join))
                return *joining == Joining::JOINED ? Result::JOINED : giveUp();
        }
        error = entry.exists ? replace(name, entry.status, size) : publish(name, size, setUp);
        if (!entry.exists && error == 0)
            return Result::CREATED;
    }
    return fail(name, error);
}

} // namespace platform
