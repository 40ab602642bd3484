#pragma once

#include "platform/SharedMemory.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <string>
#include <sys/mount.h>
#include <vector>

namespace test {

using platform::SharedMemory;
using Joining = SharedMemory::Joining;
using Result = SharedMemory::Result;

constexpr const char* OBJECT = "/shared_memory_test";
constexpr const char* OBJECT_PATH = "/dev/shm/shared_memory_test";
constexpr std::size_t OBJECT_SIZE = 64;
constexpr char FILLED = 'x';

inline bool isZero(const char* bytes) {
    return std::all_of(bytes, bytes + OBJECT_SIZE, [](char byte) { return byte == '\0'; });
}

inline bool fill(void* memory) {
    auto* const bytes = static_cast<char*>(memory);
    const bool wasZero = isZero(bytes);
    std::memset(bytes, FILLED, OBJECT_SIZE);
    return wasZero;
}

inline bool isFilled(const void* memory) {
    return *static_cast<const char*>(memory) == FILLED;
}

inline Joining joinFilled(void* memory) {
    return isFilled(memory) ? Joining::JOINED : Joining::REFUSED;
}

inline bool never(void*) {
    return false;
}

inline Result attach(SharedMemory& memory) {
    return memory.attach(OBJECT, OBJECT_SIZE, fill, joinFilled);
}

inline void put(const std::string& bytes) {
    std::ofstream(OBJECT_PATH, std::ios::binary) << bytes;
}

inline std::vector<std::string> names() {
    std::vector<std::string> all;
    for (const auto& entry : std::filesystem::directory_iterator("/dev/shm"))
        all.push_back("/" + entry.path().filename().string());
    return all;
}

/// Mounts an empty file system over a folder during its lifetime.
class Mounted {
public:
    Mounted(const char* place, const char* options)
        : m_place(place), m_done(mount("test", place, "tmpfs", 0, options) == 0) {}
    ~Mounted() {
        if (m_done)
            umount2(m_place, MNT_DETACH);
    }
    Mounted(const Mounted&) = delete;
    Mounted& operator=(const Mounted&) = delete;
    explicit operator bool() const { return m_done; }

private:
    const char* m_place;
    bool m_done;
};

class NamedSharedMemory : public testing::Test {
protected:
    void TearDown() override { SharedMemory::unlink(OBJECT); }

    SharedMemory memory;
};

} // namespace test
