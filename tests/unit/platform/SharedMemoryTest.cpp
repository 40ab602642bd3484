#include "platform/SharedMemory.h"

#include "platform/FileDescriptor.h"
#include "support/Files.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <string>
#include <sys/file.h>
#include <sys/mount.h>
#include <sys/resource.h>
#include <vector>

namespace {

using platform::FileDescriptor;
using platform::SharedMemory;
using Joining = SharedMemory::Joining;
using Result = SharedMemory::Result;

constexpr const char* NAME = "/shared_memory_test";
constexpr const char* PATH = "/dev/shm/shared_memory_test";
constexpr std::size_t SIZE = 64;
constexpr char FILLED = 'x';

bool isZero(const char* bytes) {
    return std::all_of(bytes, bytes + SIZE, [](char byte) { return byte == '\0'; });
}

bool fill(void* memory) {
    auto* const bytes = static_cast<char*>(memory);
    const bool wasZero = isZero(bytes);
    std::memset(bytes, FILLED, SIZE);
    return wasZero;
}

bool isFilled(const void* memory) {
    return *static_cast<const char*>(memory) == FILLED;
}

Joining joinFilled(void* memory) {
    return isFilled(memory) ? Joining::JOINED : Joining::REFUSED;
}

bool never(void*) {
    return false;
}

Result attach(SharedMemory& memory) {
    return memory.attach(NAME, SIZE, fill, joinFilled);
}

void put(const std::string& bytes) {
    std::ofstream(PATH, std::ios::binary) << bytes;
}

std::vector<std::string> names() {
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
    void TearDown() override { SharedMemory::unlink(NAME); }

    SharedMemory memory;
};

TEST_F(NamedSharedMemory, IsCreatedByTheFirstAndJoinedByTheNext) {
    SharedMemory first;
    SharedMemory second;
    EXPECT_EQ(first.data(), nullptr);
    EXPECT_EQ(attach(first), Result::CREATED);
    EXPECT_EQ(attach(second), Result::JOINED);
    ASSERT_NE(second.data(), first.data());
    static_cast<char*>(first.data())[SIZE - 1] = 'y';
    EXPECT_EQ(static_cast<char*>(second.data())[SIZE - 1], 'y');
    EXPECT_EQ(names(), std::vector<std::string>{NAME});
}

TEST_F(NamedSharedMemory, IsKeptByItsUsersWithoutItsName) {
    SharedMemory first;
    SharedMemory second;
    attach(first);
    SharedMemory::unlink(NAME);
    EXPECT_EQ(attach(second), Result::CREATED);
    *static_cast<char*>(first.data()) = 'y';
    EXPECT_EQ(*static_cast<char*>(second.data()), FILLED);
}

TEST_F(NamedSharedMemory, IsUnmappedWhenItIsDetached) {
    const auto isMapped = [] {
        return test::contentOf("/proc/self/maps").find(PATH) != std::string::npos;
    };
    put(std::string(SIZE, FILLED));
    EXPECT_EQ(attach(memory), Result::JOINED);
    EXPECT_TRUE(isMapped());
    memory.detach();
    EXPECT_FALSE(isMapped());
}

TEST_F(NamedSharedMemory, KeepsItsNameWhenItIsDetached) {
    attach(memory);
    memory.detach();
    memory.detach();
    EXPECT_EQ(memory.data(), nullptr);
    EXPECT_EQ(attach(memory), Result::JOINED);
    EXPECT_EQ(attach(memory), Result::JOINED) << "mapped again";
}

TEST_F(NamedSharedMemory, IsReplacedWhenJoiningIsRefused) {
    SharedMemory old;
    attach(old);
    *static_cast<char*>(old.data()) = 'y';
    EXPECT_EQ(attach(memory), Result::CREATED);
    EXPECT_EQ(*static_cast<char*>(old.data()), 'y') << "its user keeps it";
}

TEST_F(NamedSharedMemory, IsReplacedWhenItsSizeDiffers) {
    for (const std::size_t size : {std::size_t{0}, SIZE - 1, SIZE + 1, std::size_t{100000}}) {
        put(std::string(size, FILLED));
        EXPECT_EQ(attach(memory), Result::CREATED) << size;
        memory.detach();
    }
}

TEST_F(NamedSharedMemory, GetsNoNameWhenItCannotBeSetUp) {
    EXPECT_EQ(memory.attach(NAME, SIZE, never, joinFilled), Result::FAILED);
    EXPECT_EQ(memory.data(), nullptr);
    EXPECT_TRUE(names().empty());
}

TEST_F(NamedSharedMemory, FailsIfAFolderHasTheName) {
    std::filesystem::create_directory(PATH);
    EXPECT_EQ(attach(memory), Result::FAILED);
    EXPECT_EQ(memory.data(), nullptr);
    EXPECT_TRUE(std::filesystem::remove(PATH)) << "it still exists";
}

TEST_F(NamedSharedMemory, KeepsItsNameWhenItIsBusy) {
    put(std::string(SIZE, FILLED));
    const auto busy = [](void*) { return Joining::BUSY; };
    EXPECT_EQ(memory.attach(NAME, SIZE, fill, busy), Result::FAILED);
    EXPECT_EQ(memory.data(), nullptr);
    EXPECT_EQ(names(), std::vector<std::string>{NAME});
    EXPECT_EQ(attach(memory), Result::JOINED) << "once it is free";
}

TEST_F(NamedSharedMemory, FailsWithoutAName) {
    EXPECT_EQ(memory.attach(nullptr, SIZE, fill, joinFilled), Result::FAILED);
    EXPECT_EQ(memory.attach("", SIZE, fill, joinFilled), Result::FAILED);
    EXPECT_TRUE(names().empty());
    SharedMemory::unlink(nullptr);
}

// Another process makes its object while this one checks a stale one, or while it makes its own.
TEST_F(NamedSharedMemory, IsJoinedWhenAnotherProcessReplacesItFirst) {
    static SharedMemory first;
    put(std::string(SIZE, 's'));
    const auto join = [](void* found) {
        if (isFilled(found))
            return Joining::JOINED;
        SharedMemory::unlink(NAME);
        EXPECT_EQ(attach(first), Result::CREATED);
        return Joining::REFUSED;
    };
    EXPECT_EQ(memory.attach(NAME, SIZE, fill, join), Result::JOINED);
    first.detach();
}

TEST_F(NamedSharedMemory, IsJoinedWhenAnotherProcessMakesItFirst) {
    static SharedMemory first;
    const auto setUp = [](void* own) {
        EXPECT_EQ(attach(first), Result::CREATED);
        return fill(own);
    };
    EXPECT_EQ(memory.attach(NAME, SIZE, setUp, joinFilled), Result::JOINED);
    EXPECT_EQ(names(), std::vector<std::string>{NAME});
    first.detach();
}

TEST_F(NamedSharedMemory, IsWaitedForALimitedTimeWhenTheFolderIsLocked) {
    put("stale");
    FileDescriptor folder(open("/dev/shm", O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    ASSERT_EQ(flock(folder.number(), LOCK_EX), 0);
    EXPECT_EQ(attach(memory), Result::FAILED);
    EXPECT_EQ(memory.data(), nullptr);
    folder.close();
    EXPECT_EQ(attach(memory), Result::CREATED);
}

TEST_F(NamedSharedMemory, IsMadeWithoutProcToo) {
    SharedMemory first;
    SharedMemory second;
    {
        const Mounted noProc("/proc", "");
        if (!noProc)
            GTEST_SKIP() << "nothing can be mounted here";
        EXPECT_EQ(attach(first), Result::CREATED);
        EXPECT_EQ(attach(second), Result::JOINED);
    }
    EXPECT_EQ(names(), std::vector<std::string>{NAME}) << "no temporary name is left";
}

TEST_F(NamedSharedMemory, IsNotMappedWhenTheFileSystemIsFull) {
    const Mounted small("/dev/shm", "size=1");
    if (!small)
        GTEST_SKIP() << "nothing can be mounted here";
    std::ofstream("/dev/shm/all", std::ios::binary) << std::string(1 << 20, 'a');
    EXPECT_EQ(attach(memory), Result::FAILED);
    put("");
    std::filesystem::resize_file(PATH, SIZE); // a sparse file, for which there is no space either
    EXPECT_EQ(attach(memory), Result::FAILED);
    EXPECT_EQ(memory.data(), nullptr);
}

// Each attempt is a process of its own, since a process keeps its limit and prints its line once.
// GoogleTest runs suites whose names end in DeathTest first, before a line was printed.
[[noreturn]] void attachTwice(rlim_t limit, std::size_t size, Result expected) {
    const auto accept = [](void*) { return true; };
    const auto join = [](void*) { return Joining::JOINED; };
    const rlimit limits{limit, RLIM_INFINITY};
    setrlimit(RLIMIT_FSIZE, &limits);
    bool asExpected = true;
    for (int i = 0; i < 2; ++i) {
        asExpected = SharedMemory().attach(NAME, size, accept, join) == expected && asExpected;
        SharedMemory::unlink(NAME);
    }
    std::_Exit(asExpected ? 0 : 1);
}

// PEER-9
TEST(SharedMemoryLimitDeathTest, IsReportedOnceAndDoesNotEndTheProcess) {
    constexpr std::size_t LARGE = 100000; // the test's standard error is a file, too
    EXPECT_EXIT(
        attachTwice(LARGE - 1, LARGE, Result::FAILED), testing::ExitedWithCode(0),
        testing::MatchesRegex("platwifi: the shared memory object /shared_memory_test cannot be "
                              "used .File too large.;[^\n]*\n"));
    EXPECT_EXIT(attachTwice(0, SIZE, Result::FAILED), testing::ExitedWithCode(0),
                testing::IsEmpty())
        << "the line itself may not be written";
    EXPECT_EXIT(attachTwice(LARGE, LARGE, Result::CREATED), testing::ExitedWithCode(0),
                testing::IsEmpty());
    EXPECT_TRUE(names().empty());
}

// PEER-9
TEST(SharedMemoryLimitDeathTest, DoesNotStopAProcessFromJoining) {
    SharedMemory other;
    ASSERT_EQ(attach(other), Result::CREATED);
    const auto join = [] {
        const rlimit none{0, RLIM_INFINITY};
        setrlimit(RLIMIT_FSIZE, &none);
        SharedMemory memory;
        std::_Exit(attach(memory) == Result::JOINED ? 0 : 1);
    };
    EXPECT_EXIT(join(), testing::ExitedWithCode(0), testing::IsEmpty());
    SharedMemory::unlink(NAME);
}

} // namespace
