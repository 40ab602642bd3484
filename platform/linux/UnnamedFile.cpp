#include "platform/UnnamedFile.h"

#include <sys/mman.h>

namespace platform {

FileDescriptor newUnnamedFile() noexcept {
    return FileDescriptor(memfd_create("reply", MFD_CLOEXEC));
}

} // namespace platform
