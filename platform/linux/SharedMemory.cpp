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
constexpr mode_t MODE = 0777;              // less the umask
constexpr int ATTEMPTS = 100;
constexpr int PAUSE_MILLISECONDS = 10;

std::string pathOf(const char* name) {
    return std::string(FOLDER) + name;
}

/// What stands under a name.
struct Standing {
    FileDescriptor file; ///< none for what cannot be opened
    struct stat status;
    bool exists;
};

// What cannot be opened is known by what stood there before that was tried: what stands there after
// it may be somebody's new object.
Standing look(const char* name) {
    Standing found{FileDescriptor(), {}, false};
    found.exists = lstat(pathOf(name).c_str(), &found.status) == 0;
    if (found.exists)
        found.file = FileDescriptor(shm_open(name, O_RDWR, 0));
    if (found.file.isOpen())
        fstat(found.file.number(), &found.status);
    return found;
}

bool looksLikeOne(const struct stat& status, std::size_t size) noexcept {
    return S_ISREG(status.st_mode) && status.st_size == static_cast<off_t>(size);
}

bool isTrusted(const struct stat& status) noexcept {
    return status.st_uid == 0 || status.st_uid == geteuid();
}

bool mayBeOurs(const Standing& found, std::size_t size) noexcept {
    return found.file.isOpen() && looksLikeOne(found.status, size) && isTrusted(found.status);
}

// An object of another user is not joined, since that user could cut it short under this process. Its
// processes do not notice that it has lost its name.
void warnOfReplacement(const char* name, const struct stat& status, std::size_t size) {
    static OnceWarning warning;
    if (!looksLikeOne(status, size) || isTrusted(status))
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

// Takes the name away from what was found under it, and from nothing that came later: whoever does
// this holds the lock of the folder. Returns an error number.
int retire(const char* name, const struct stat& stale) {
    const FileDescriptor folder(open(FOLDER, O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (flock(folder.number(), LOCK_EX | LOCK_NB) != 0)
        return errno;
    const std::string path = pathOf(name);
    struct stat now {};
    if (lstat(path.c_str(), &now) != 0 || now.st_ino != stale.st_ino || now.st_dev != stale.st_dev)
        return 0;
    return ::unlink(path.c_str()) == 0 || errno == ENOENT ? 0 : errno;
}

/// A new object that has not got its name yet.
class Unnamed {
public:
    /// One without any name, gone with its last user.
    Unnamed() : m_file(open(FOLDER, O_TMPFILE | O_RDWR | O_CLOEXEC, MODE)) {
        if (m_file.isOpen())
            m_path = "/proc/self/fd/" + std::to_string(m_file.number());
    }

    /// The second best, for an old kernel or a system without /proc.
    explicit Unnamed(const std::string& temporaryPath)
        : m_path(temporaryPath),
          m_file(open(m_path.c_str(), O_CREAT | O_EXCL | O_RDWR | O_NOFOLLOW | O_CLOEXEC, MODE)),
          m_temporary(m_file.isOpen()) {}

    ~Unnamed() {
        if (m_temporary)
            ::unlink(m_path.c_str());
    }

    Unnamed(const Unnamed&) = delete;
    Unnamed& operator=(const Unnamed&) = delete;

    int file() const noexcept { return m_file.number(); }

    // Returns an error number: EEXIST where somebody was faster.
    int giveName(const char* name) const {
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

// Threads of several process namespaces may have one id, not at one time as well.
std::string temporaryPathFor(const char* name) {
    const auto time = std::chrono::steady_clock::now().time_since_epoch().count();
    return pathOf(name) + "." + std::to_string(PlatformUtil::threadId()) + "." +
           std::to_string(time);
}

// Somebody was faster, or holds the lock of the folder for the moment it takes.
bool mayPass(int error) noexcept {
    return error == 0 || error == EEXIST || error == EWOULDBLOCK;
}

// Takes the name from what was found under it, as retire() does.
int replace(const char* name, const struct stat& stale, std::size_t size) {
    const int error = retire(name, stale);
    if (error == 0)
        warnOfReplacement(name, stale, size);
    return error;
}

// Touching memory that a full file system has no place for would end the process.
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

// Returns an error number: EEXIST where somebody was faster.
int SharedMemory::publish(const char* name, std::size_t size, SetUp setUp) noexcept {
    if (!mayGrowTo(size))
        return EFBIG;
    const Unnamed nameless;
    if (make(nameless.file(), size, setUp)) {
        const int error = nameless.giveName(name);
        if (error == 0 || error == EEXIST)
            return error;
    }
    const Unnamed temporary(temporaryPathFor(name));
    return make(temporary.file(), size, setUp) ? temporary.giveName(name) : ENOTSUP;
}

// Returns no value where the object is to be made, or made anew.
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
    for (int attempt = 0; attempt < ATTEMPTS && mayPass(error); ++attempt) {
        if (error == EWOULDBLOCK)
            PlatformUtil::sleep(PAUSE_MILLISECONDS);
        const Standing found = look(name);
        if (mayBeOurs(found, size)) {
            if (const auto joining = tryJoin(found.file.number(), size, join))
                return *joining == Joining::JOINED ? Result::joined : giveUp();
        }
        error = found.exists ? replace(name, found.status, size) : publish(name, size, setUp);
        if (!found.exists && error == 0)
            return Result::created;
    }
    warnOfFailure(name, error);
    return giveUp();
}

SharedMemory::Result SharedMemory::giveUp() noexcept {
    detach();
    return Result::failed;
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
