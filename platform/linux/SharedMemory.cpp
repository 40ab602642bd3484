#include "platform/SharedMemory.h"

#include "common/FileSizeLimit.h"
#include "platform/FileDescriptor.h"
#include "platform/OnceWarning.h"
#include "platform/PlatformUtil.h"

#include <cerrno>
#include <chrono>
#include <fcntl.h>
#include <string>
#include <sys/file.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>

namespace platform {
namespace {

constexpr const char* FOLDER = "/dev/shm"; // where shm_open() keeps its objects
constexpr mode_t MODE = 0777;              // minus the umask
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

bool looksLikeObject(const struct stat& status, std::size_t size) noexcept {
    return S_ISREG(status.st_mode) && status.st_size == static_cast<off_t>(size);
}

bool isTrusted(const struct stat& status) noexcept {
    return status.st_uid == 0 || status.st_uid == geteuid();
}

bool isJoinable(const ShmEntry& entry, std::size_t size) noexcept {
    return entry.file.isOpen() && looksLikeObject(entry.status, size) && isTrusted(entry.status);
}

// An object of another user is not joined: that user could truncate it, which ends this process
// when it touches the memory. The processes that share the object do not notice that it has lost
// its name.
void warnOfReplacement(const char* name, const struct stat& status, std::size_t size) {
    static OnceWarning warning;
    if (!looksLikeObject(status, size) || isTrusted(status))
        return;
    warning.print(std::string("the shared memory object ") + name + " of user " +
                  std::to_string(status.st_uid) +
                  " is replaced; running processes of that user and this one do not notice each "
                  "other's saves; run all of them as one user");
}

void warnOfFailure(const char* name, int error) {
    static OnceWarning warning;
    warning.print(std::string("the shared memory object ") + (name ? name : "") +
                  " cannot be used (" + std::system_category().message(error) +
                  "); this process and others do not notice each other's saves; look at it, at "
                  "the rights of /dev/shm and at the limit on the size of a file (ulimit -f)");
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

/// The file of a new object, which does not have the object's name yet.
class AnonymousFile {
public:
    /// A file without any name. The kernel removes it with its last user.
    AnonymousFile() : m_file(open(FOLDER, O_TMPFILE | O_RDWR | O_CLOEXEC, MODE)) {
        if (m_file.isOpen())
            m_path = "/proc/self/fd/" + std::to_string(m_file.number());
    }

    /// A file with a temporary name, for an old kernel or a system without /proc.
    explicit AnonymousFile(const std::string& temporaryPath)
        : m_path(temporaryPath),
          m_file(open(m_path.c_str(), O_CREAT | O_EXCL | O_RDWR | O_NOFOLLOW | O_CLOEXEC, MODE)),
          m_temporary(m_file.isOpen()) {}

    ~AnonymousFile() {
        if (m_temporary)
            ::unlink(m_path.c_str());
    }

    AnonymousFile(const AnonymousFile&) = delete;
    AnonymousFile& operator=(const AnonymousFile&) = delete;

    int file() const noexcept { return m_file.number(); }

    // Gives the file this name. Returns an error number: EEXIST when another process was first.
    int linkTo(const char* name) const {
        return linkat(AT_FDCWD, m_path.c_str(), AT_FDCWD, pathOf(name).c_str(),
                      AT_SYMLINK_FOLLOW) == 0
                   ? 0
                   : errno;
    }

private:
    std::string m_path;
    FileDescriptor m_file;
    bool m_temporary = false;
};

// The time is added because threads in different process namespaces may have the same id.
std::string temporaryPathFor(const char* name) {
    const auto time = std::chrono::steady_clock::now().time_since_epoch().count();
    return pathOf(name) + "." + std::to_string(PlatformUtil::threadId()) + "." +
           std::to_string(time);
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

// Without this, writing to the memory would end the process when the file system is full.
bool reserve(int file, std::size_t size) noexcept {
    while (fallocate(file, 0, 0, static_cast<off_t>(size)) != 0) {
        if (errno != EINTR)
            return errno == EOPNOTSUPP;
    }
    return true;
}

} // namespace

bool SharedMemory::map(int file, std::size_t size) noexcept {
    detach();
    if (!reserve(file, size))
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

// Returns an error number: EEXIST when another process was first.
int SharedMemory::publish(const char* name, std::size_t size, SetUp setUp) noexcept {
    if (!mayGrowTo(size))
        return EFBIG;
    const AnonymousFile unnamed;
    if (make(unnamed.file(), size, setUp)) {
        const int error = unnamed.linkTo(name);
        if (error == 0 || error == EEXIST)
            return error;
    }
    const AnonymousFile temporary(temporaryPathFor(name));
    return make(temporary.file(), size, setUp) ? temporary.linkTo(name) : ENOTSUP;
}

// No value when the object must be replaced.
std::optional<SharedMemory::Joining> SharedMemory::tryJoin(int file, std::size_t size,
                                                           Join join) noexcept {
    if (!map(file, size))
        return std::nullopt;
    const Joining joining = join(m_data);
    return joining == Joining::REFUSED ? std::nullopt : std::optional(joining);
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
