#include "KeyFile.h"

#include "Cipher.h"
#include "CryptError.h"
#include "NewKeyFile.h"
#include "platform/FileDescriptor.h"

#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <optional>
#include <sys/stat.h>
#include <unistd.h>

namespace platform {
namespace {

[[noreturn]] void fail(const char* id, const std::string& path, const std::string& cause) {
    throw CryptError(id, "key file " + path + " " + cause);
}

// No value when there is no such file. With O_NONBLOCK, a pipe with that name does not block the
// caller.
std::optional<FileDescriptor> openKeyFile(const std::string& path) {
    FileDescriptor file(open(path.c_str(), O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC));
    if (file.isOpen())
        return file;
    if (errno == ENOENT)
        return std::nullopt;
    if (errno == ELOOP)
        fail("crypt.key-type", path, "is a symbolic link; put the file itself there");
    fail("crypt.key-unreadable", path,
         std::string("cannot be opened: ") + std::strerror(errno) +
             "; check the path and this user's access to it");
}

void checkKeyFile(const struct stat& file, const std::string& path) {
    if (!S_ISREG(file.st_mode))
        fail("crypt.key-type", path, "is not a regular file; remove it");
    if (file.st_uid != geteuid())
        fail("crypt.key-owner", path,
             "belongs to another user; give this user a key file of its own");
    if ((file.st_mode & (S_IRWXG | S_IRWXO)) != 0) {
        fail("crypt.key-exposed", path,
             "is open to group or others; make sure that no other user has read it, "
             "then: chmod 600");
    }
    if (file.st_size != static_cast<off_t>(KEY_BYTES))
        fail("crypt.key-size", path,
             "does not hold 32 bytes; restore it, or remove it for a new key");
}

SecretBytes readKey(const FileDescriptor& file, const std::string& path) {
    struct stat status {};
    if (fstat(file.number(), &status) != 0)
        fail("crypt.key-unreadable", path, std::string("cannot be read: ") + std::strerror(errno));
    checkKeyFile(status, path);
    SecretBytes key(KEY_BYTES);
    const ssize_t size = read(file.number(), key.data(), key.size());
    if (size < 0)
        fail("crypt.key-unreadable", path, std::string("cannot be read: ") + std::strerror(errno));
    if (static_cast<std::size_t>(size) != KEY_BYTES)
        fail("crypt.key-size", path, "was cut short while it was read; restore it");
    return key;
}

} // namespace

SecretBytes readKeyFile(const std::string& path, MissingKey missing) {
    std::optional<FileDescriptor> file = openKeyFile(path);
    if (!file && missing == MissingKey::MAKE) {
        makeKeyFile(path);
        file = openKeyFile(path);
    }
    if (!file)
        throw CryptError("crypt.no-key", "there is no key file " + path +
                                             "; restore the one that the text was enciphered with");
    return readKey(*file, path);
}

} // namespace platform
