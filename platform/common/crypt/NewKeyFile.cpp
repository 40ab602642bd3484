#include "NewKeyFile.h"

#include "Cipher.h"
#include "CryptError.h"
#include "SecretBytes.h"
#include "common/FileSizeLimit.h"
#include "common/TemporaryFile.h"
#include "platform/FileDescriptor.h"

#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace platform {
namespace {

[[noreturn]] void fail(const std::string& path) {
    throw CryptError("crypt.key-folder", "key file " + path +
                                             " cannot be made: " + std::strerror(errno) +
                                             "; make its folder writable for this user, or set "
                                             "PLATFORM_KEY_FILE to another place");
}

std::string folderOf(const std::string& path) {
    const auto slash = path.rfind('/');
    return slash == std::string::npos ? "." : path.substr(0, slash + 1);
}

void makeFolders(const std::string& path) {
    for (auto end = path.find('/', 1); end != std::string::npos; end = path.find('/', end + 1)) {
        const std::string folder = path.substr(0, end);
        if (mkdir(folder.c_str(), S_IRWXU) != 0 && errno != EEXIST)
            fail(path);
    }
}

bool fill(const TemporaryFile& file, const SecretBytes& bytes) {
    return file.isOpen() && fchmod(file.number(), S_IRUSR | S_IWUSR) == 0 &&
           mayGrowTo(bytes.size()) &&
           write(file.number(), bytes.data(), bytes.size()) == static_cast<ssize_t>(bytes.size()) &&
           fsync(file.number()) == 0;
}

// A link and no rename: a rename would replace an existing key file.
bool publish(const TemporaryFile& file, const std::string& path) {
    return link(file.path().c_str(), path.c_str()) == 0 || errno == EEXIST;
}

// If a power failure removed the key file, nothing that was enciphered with it could be deciphered.
void syncFolder(const std::string& path) {
    const FileDescriptor folder(open(folderOf(path).c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (folder.isOpen())
        fsync(folder.number());
}

} // namespace

void makeKeyFile(const std::string& path) {
    makeFolders(path);
    const SecretBytes key = randomKey();
    const TemporaryFile file(path, S_IRUSR | S_IWUSR);
    if (!fill(file, key) || !publish(file, path))
        fail(path);
    syncFolder(path);
}

} // namespace platform
