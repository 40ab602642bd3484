#pragma once

#include "watchdog/SharedSignalBlock.h"

#include <fcntl.h>
#include <string>
#include <sys/mman.h>
#include <unistd.h>

namespace test {

constexpr const char* BLOCK_NAME = "/wifi_shmem";
constexpr const char* BLOCK_PATH = "/dev/shm/wifi_shmem";

/// Maps the block that has the name now, so that a test can read it. Null when there is none.
class BlockView {
public:
    BlockView() {
        const int file = shm_open(BLOCK_NAME, O_RDWR, 0);
        if (file == -1)
            return;
        void* const memory =
            mmap(nullptr, sizeof(SharedSignalBlock), PROT_READ | PROT_WRITE, MAP_SHARED, file, 0);
        close(file);
        m_block = memory == MAP_FAILED ? nullptr : static_cast<SharedSignalBlock*>(memory);
    }
    ~BlockView() {
        if (m_block)
            munmap(m_block, sizeof(SharedSignalBlock));
    }
    BlockView(const BlockView&) = delete;
    BlockView& operator=(const BlockView&) = delete;

    explicit operator bool() const { return m_block != nullptr; }
    SharedSignalBlock* operator->() const { return m_block; }

    /// The three numbers as "pending sender users"; the sender is "none" when there is none.
    std::string numbers() const {
        m_block->lock();
        const std::string sender = m_block->refreshSender == SharedSignalBlock::NO_SENDER
                                       ? "none"
                                       : std::to_string(m_block->refreshSender);
        const std::string text = std::to_string(m_block->refreshPending) + " " + sender + " " +
                                 std::to_string(m_block->attachCount);
        m_block->unlock();
        return text;
    }

    /// Raises a signal with this thread id as its sender.
    void raise(std::uint32_t sender) const {
        m_block->lockSignal();
        m_block->raise(sender);
        m_block->unlockSignal();
    }

    bool isPending() const { return numbers()[0] == '1'; }

private:
    SharedSignalBlock* m_block = nullptr;
};

inline bool blockHasName() {
    return access(BLOCK_PATH, F_OK) == 0;
}

} // namespace test
