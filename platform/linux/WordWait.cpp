#include "common/WordWait.h"

#include "common/MonotonicTime.h"

#include <cerrno>
#include <climits>
#include <ctime>
#include <linux/futex.h>
#include <sys/syscall.h>
#include <unistd.h>

namespace platform {
namespace {

// On a 32-bit machine with a 64-bit time_t, the kernel has a separate call for such times.
#ifdef SYS_futex_time64
constexpr long FUTEX = sizeof(time_t) > sizeof(long) ? SYS_futex_time64 : SYS_futex;
#else
constexpr long FUTEX = SYS_futex;
#endif

// Another process can only be woken without FUTEX_PRIVATE_FLAG. The kernel then looks up the page of the word.
int operationFor(int operation, bool isLocal) noexcept {
    return isLocal ? operation | FUTEX_PRIVATE_FLAG : operation;
}

} // namespace

int awaitChange(std::uint32_t& word, std::uint32_t value, bool isLocal,
                std::chrono::steady_clock::time_point deadline) noexcept {
    const int operation = operationFor(FUTEX_WAIT_BITSET, isLocal);
    const timespec time = toTimespec(deadline);
    while (syscall(FUTEX, &word, operation, value, &time, nullptr, FUTEX_BITSET_MATCH_ANY) != 0) {
        if (errno != EINTR)
            return errno == ETIMEDOUT ? ETIMEDOUT : 0;
    }
    return 0;
}

void wakeWaiters(std::uint32_t& word, bool isLocal) noexcept {
    syscall(FUTEX, &word, operationFor(FUTEX_WAKE, isLocal), INT_MAX, nullptr, nullptr, 0);
}

} // namespace platform
