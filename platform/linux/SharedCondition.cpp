#include "platform/SharedCondition.h"

#include "common/MonotonicTime.h"

#include <cerrno>
#include <climits>
#include <ctime>
#include <linux/futex.h>
#include <sys/syscall.h>
#include <unistd.h>

namespace platform {
namespace {

using Clock = std::chrono::steady_clock;

constexpr std::uint32_t MARK = 0x57694669;
constexpr std::uint32_t LOCAL_MARK = MARK + 1;

// On a 32-bit machine with a 64-bit time_t, the kernel has a separate call for such times.
#ifdef SYS_futex_time64
constexpr long FUTEX = sizeof(time_t) > sizeof(long) ? SYS_futex_time64 : SYS_futex;
#else
constexpr long FUTEX = SYS_futex;
#endif

std::uint32_t valueOf(const std::uint32_t& mark) noexcept {
    return __atomic_load_n(&mark, __ATOMIC_ACQUIRE);
}

// Another process can only be woken without FUTEX_PRIVATE_FLAG. The kernel then looks up the page of the word.
int operationFor(int operation, const std::uint32_t& mark) noexcept {
    return valueOf(mark) == LOCAL_MARK ? operation | FUTEX_PRIVATE_FLAG : operation;
}

int waitWhile(std::uint32_t* word, int operation, std::uint32_t value,
              const timespec& deadline) noexcept {
    while (syscall(FUTEX, word, operation, value, &deadline, nullptr, FUTEX_BITSET_MATCH_ANY) !=
           0) {
        if (errno != EINTR)
            return errno == ETIMEDOUT ? ETIMEDOUT : 0;
    }
    return 0;
}

} // namespace

void SharedCondition::setUp(Reach reach) noexcept {
    sequence = 0;
    __atomic_store_n(&mark, reach == Reach::THIS_PROCESS ? LOCAL_MARK : MARK, __ATOMIC_RELEASE);
}

bool SharedCondition::isSetUp() const noexcept {
    return valueOf(mark) == MARK || valueOf(mark) == LOCAL_MARK;
}

void SharedCondition::end() noexcept {
    __atomic_store_n(&mark, 0U, __ATOMIC_RELEASE);
}

int SharedCondition::wait(PlatformMutex& mutex, Clock::time_point deadline) noexcept {
    const std::uint32_t seen = __atomic_load_n(&sequence, __ATOMIC_ACQUIRE);
    if (const int error = PlatformUtil::unlockMutex(&mutex))
        return error;
    const int result =
        waitWhile(&sequence, operationFor(FUTEX_WAIT_BITSET, mark), seen, toTimespec(deadline));
    const int error = PlatformUtil::lockMutexUntil(&mutex, Clock::now() + RELOCK_LIMIT);
    if (error == ETIMEDOUT)
        return EBUSY;
    return error != 0 ? error : result;
}

void SharedCondition::broadcast() noexcept {
    __atomic_fetch_add(&sequence, 1U, __ATOMIC_RELEASE);
    syscall(FUTEX, &sequence, operationFor(FUTEX_WAKE, mark), INT_MAX, nullptr, nullptr, 0);
}

} // namespace platform
