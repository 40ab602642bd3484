#include "support/ForeignSignal.h"

#include "support/ThreadState.h"

#include <algorithm>
#include <fcntl.h>
#include <stdexcept>
#include <sys/mman.h>
#include <thread>
#include <unistd.h>

namespace test {
namespace {

const volatile SharedSignalBlock* mapBlock() {
    const int descriptor = shm_open("/wifi_shmem", O_RDONLY, 0);
    void* const block =
        mmap(nullptr, sizeof(SharedSignalBlock), PROT_READ, MAP_SHARED, descriptor, 0);
    close(descriptor);
    if (block == MAP_FAILED)
        throw std::runtime_error("the shared block cannot be mapped");
    return static_cast<const volatile SharedSignalBlock*>(block);
}

} // namespace

ForeignSignal::ForeignSignal() {
    m_watchdog.initialize();
    m_block = mapBlock();
}

ForeignSignal::~ForeignSignal() {
    munmap(const_cast<SharedSignalBlock*>(m_block), sizeof(SharedSignalBlock));
}

void ForeignSignal::raise() {
    m_watchdog.sendRefreshSettingsSignal();
}

// After it has taken the signal, the thread first sleeps for a client or in its next wait.
void ForeignSignal::awaitTaken() const {
    while (m_block->refreshPending != 0)
        std::this_thread::yield();
    const auto threads = threadsNamed(REFRESH_THREAD);
    while (!std::all_of(threads.begin(), threads.end(), isAsleep))
        std::this_thread::yield();
}

} // namespace test
