#include "platform/UnnamedFile.h"

#include "common/TemporaryFile.h"

#include <cerrno>
#include <exception>
#include <sys/stat.h>

namespace platform {

// The file has a name for a moment. A process that is killed then leaves it behind, empty.
FileDescriptor newUnnamedFile() noexcept {
    try {
        return TemporaryFile("/tmp/platwifi_reply", S_IRUSR | S_IWUSR).release();
    } catch (const std::exception&) {
        errno = ENOMEM;
        return FileDescriptor();
    }
}

} // namespace platform
