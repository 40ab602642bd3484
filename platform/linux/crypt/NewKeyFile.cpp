#include "NewKeyFile.h"

#include "Cipher.h"
#include "CryptError.h"
#include "SecretBytes.h"
#include "common/FileSizeLimit.h"
#include "platform/FileDescriptor.h"

#include <cerrno>
#include <cstdlib>
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

/// A file with a unique name, removed with the object.
class TemporaryFile {
public:
    explicit TemporaryFile(const std::string& beside)
        : m_path(beside + ".XXXXXX"), m_file(mkostemp(m_path.data(), O_CLOEXEC)) {}
    ~TemporaryFile() {
        if (m_file.isOpen())
            unlink(m_path.c_str());
    }
    TemporaryFile(const TemporaryFile&) = delete;
    TemporaryFile& operator=(const TemporaryFile&) = delete;

    bool fill(const SecretBytes& bytes) {
        return m_file.isOpen() && fchmod(m_file.number(), S_IRUSR | S_IWUSR) == 0 &&
               mayGrowTo(bytes.size()) &&
               write(m_file.number(), bytes.data(), bytes.size()) ==
                   static_cast<ssize_t>(bytes.size()) &&
               fsync(m_file.number()) == 0;
    }

    // A link and no rename: a rename would replace an existing key file.
    bool publish(const std::string& path) {
        return link(m_path.c_str(), path.c_str()) == 0 || errno == EEXIST;
    }

private:
    std::string m_path;
    FileDescriptor m_file;
};

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
    TemporaryFile file(path);
    if (!file.fill(key) || !file.publish(path))
        fail(path);
    syncFolder(path);
}

} // namespace platform
