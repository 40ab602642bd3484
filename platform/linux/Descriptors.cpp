#include "common/Descriptors.h"

#include <fcntl.h>
#include <unistd.h>

namespace platform {

Pipe::Pipe() noexcept {
    int ends[2];
    if (pipe2(ends, O_CLOEXEC) != 0)
        return;
    reader = FileDescriptor(ends[0]);
    writer = FileDescriptor(ends[1]);
}

void closeFrom(int first) noexcept {
    ::closefrom(first);
}

int addCloseFrom(posix_spawn_file_actions_t& actions, int first) noexcept {
    return posix_spawn_file_actions_addclosefrom_np(&actions, first);
}

} // namespace platform
