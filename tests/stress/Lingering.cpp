#include "Lingering.h"

#include "Job.h"
#include "platform/PlatformUtil.h"
#include "platform/SharedMemory.h"

#include <chrono>
#include <thread>

using platform::SharedMemory;

// The linker replaces SharedMemory::attach() and PlatformUtil::unlockMutex() by these.
#define ATTACH "_ZN8platform12SharedMemory6attachEPKcmPFbPvEPFNS0_7JoiningES3_E"
#define UNLOCK "_ZN12PlatformUtil11unlockMutexEP15pthread_mutex_t"
SharedMemory::Result realAttach(SharedMemory*, const char*, std::size_t, SharedMemory::SetUp,
                                SharedMemory::Join) noexcept __asm__("__real_" ATTACH);
SharedMemory::Result notedAttach(SharedMemory*, const char*, std::size_t, SharedMemory::SetUp,
                                 SharedMemory::Join) noexcept __asm__("__wrap_" ATTACH);
int realUnlock(PlatformMutex*) noexcept __asm__("__real_" UNLOCK);
int lateUnlock(PlatformMutex*) noexcept __asm__("__wrap_" UNLOCK);

namespace {

constexpr std::uint32_t LONGEST_MICROSECONDS = 3000;

std::atomic<std::uint32_t>* holdsShared = nullptr;
std::uint32_t firstSeed = 0;
std::atomic<std::uint32_t> threads{0};
std::atomic<std::uintptr_t> blockBegin{0};
std::atomic<std::uintptr_t> blockEnd{0};

bool isShared(const PlatformMutex* mutex) {
    const auto address = reinterpret_cast<std::uintptr_t>(mutex);
    return address >= blockBegin && address < blockEnd;
}

stress::Random& ownRandom() {
    static thread_local stress::Random random(firstSeed, ++threads);
    return random;
}

} // namespace

void stress::linger(std::uint32_t seed, std::atomic<std::uint32_t>& holds) {
    firstSeed = seed;
    holdsShared = &holds;
}

SharedMemory::Result notedAttach(SharedMemory* memory, const char* name, std::size_t size,
                                 SharedMemory::SetUp setUp, SharedMemory::Join join) noexcept {
    const auto result = realAttach(memory, name, size, setUp, join);
    blockBegin = reinterpret_cast<std::uintptr_t>(memory->data());
    blockEnd = memory->data() ? blockBegin + size : 0;
    return result;
}

int lateUnlock(PlatformMutex* mutex) noexcept {
    if (!holdsShared || !isShared(mutex))
        return realUnlock(mutex);
    if (ownRandom().oneIn(2)) {
        *holdsShared = 1;
        std::this_thread::sleep_for(
            std::chrono::microseconds(ownRandom().below(LONGEST_MICROSECONDS)));
        *holdsShared = 0;
    }
    return realUnlock(mutex);
}
