#pragma once

#include <cstddef>
#include <sys/syscall.h>
#include <unistd.h>

namespace test {

/// Whether the system recovers the robust mutexes of a process that dies. An emulator may not.
inline bool systemHasRobustMutexes() {
    void* head = nullptr;
    std::size_t size = 0;
    return syscall(SYS_get_robust_list, 0, &head, &size) == 0 && head != nullptr;
}

} // namespace test
