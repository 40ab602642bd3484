#include "platform/SharedCondition.h"

#include "common/WordWait.h"

#include <cerrno>

namespace platform {
namespace {

using Clock = std::chrono::steady_clock;

constexpr std::uint32_t MARK = 0x57694669;
constexpr std::uint32_t LOCAL_MARK = MARK + 1;

std::uint32_t valueOf(const std::uint32_t& mark) noexcept {
    return __atomic_load_n(&mark, __ATOMIC_ACQUIRE);
}

bool isLocal(const std::uint32_t& mark) noexcept {
    return valueOf(mark) == LOCAL_MARK;
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
    const int result = awaitChange(sequence, seen, isLocal(mark), deadline);
    const int error = PlatformUtil::lockMutexUntil(&mutex, Clock::now() + RELOCK_LIMIT);
    if (error == ETIMEDOUT)
        return EBUSY;
    return error != 0 ? error : result;
}

void SharedCondition::broadcast() noexcept {
    __atomic_fetch_add(&sequence, 1U, __ATOMIC_RELEASE);
    wakeWaiters(sequence, isLocal(mark));
}

} // namespace platform
