#include "platform/SharedMemory.h"

#include "platform/FileDescriptor.h"

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

/// An empty file system over a place, for as long as this object lives.
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

class SharedMemoryOfAName : public testing::Test {
protected:
    void TearDown() override { SharedMemory::unlink(NAME); }
};

TEST_F(SharedMemoryOfAName, IsCreatedByTheFirstAndJoinedByTheNext) {
    SharedMemory first;
    SharedMemory second;
    EXPECT_EQ(first.data(), nullptr);
    EXPECT_EQ(attach(first), Result::created);
    EXPECT_EQ(attach(second), Result::joined);
    ASSERT_NE(second.data(), first.data());
    static_cast<char*>(first.data())[SIZE - 1] = 'y';
    EXPECT_EQ(static_cast<char*>(second.data())[SIZE - 1], 'y');
    EXPECT_EQ(names(), std::vector<std::string>{NAME});
}

TEST_F(SharedMemoryOfAName, StaysWithItsUsersWhenItLosesItsName) {
    SharedMemory first;
    SharedMemory second;
    attach(first);
    SharedMemory::unlink(NAME);
    EXPECT_EQ(attach(second), Result::created);
    *static_cast<char*>(first.data()) = 'y';
    EXPECT_EQ(*static_cast<char*>(second.data()), FILLED);
}

TEST_F(SharedMemoryOfAName, IsNotMappedAnyMoreWhenItIsDetached) {
    const auto isMapped = [] {
        std::ifstream maps("/proc/self/maps");
        const std::string text(std::istreambuf_iterator<char>(maps), {});
        return text.find(PATH) != std::string::npos;
    };
    put(std::string(SIZE, FILLED));
    SharedMemory memory;
    EXPECT_EQ(attach(memory), Result::joined);
    EXPECT_TRUE(isMapped());
    memory.detach();
    EXPECT_FALSE(isMapped());
}

TEST_F(SharedMemoryOfAName, KeepsItsNameWhenItIsDetached) {
    SharedMemory memory;
    attach(memory);
    memory.detach();
    memory.detach();
    EXPECT_EQ(memory.data(), nullptr);
    EXPECT_EQ(attach(memory), Result::joined);
    EXPECT_EQ(attach(memory), Result::joined) << "in place of what was mapped";
}

TEST_F(SharedMemoryOfAName, IsReplacedWhenItIsNotFitToJoin) {
    SharedMemory old;
    SharedMemory memory;
    attach(old);
    *static_cast<char*>(old.data()) = 'y';
    EXPECT_EQ(attach(memory), Result::created);
    EXPECT_EQ(*static_cast<char*>(old.data()), 'y') << "who has it keeps it";
}

TEST_F(SharedMemoryOfAName, IsReplacedWhenItsSizeDiffers) {
    for (const std::size_t size : {std::size_t{0}, SIZE - 1, SIZE + 1, std::size_t{100000}}) {
        put(std::string(size, FILLED));
        SharedMemory memory;
        EXPECT_EQ(attach(memory), Result::created) << size;
    }
}

TEST_F(SharedMemoryOfAName, NeverShowsWhatCouldNotBeSetUp) {
    SharedMemory memory;
    EXPECT_EQ(memory.attach(NAME, SIZE, never, joinFilled), Result::failed);
    EXPECT_EQ(memory.data(), nullptr);
    EXPECT_TRUE(names().empty());
}

TEST_F(SharedMemoryOfAName, FailsWhenTheNameCannotBeHad) {
    std::filesystem::create_directory(PATH);
    SharedMemory memory;
    EXPECT_EQ(attach(memory), Result::failed);
    EXPECT_EQ(memory.data(), nullptr);
    EXPECT_TRUE(std::filesystem::remove(PATH)) << "it was left alone";
}

TEST_F(SharedMemoryOfAName, KeepsTheNameOfAnObjectThatIsBusy) {
    put(std::string(SIZE, FILLED));
    SharedMemory memory;
    const auto busy = [](void*) { return Joining::BUSY; };
    EXPECT_EQ(memory.attach(NAME, SIZE, fill, busy), Result::failed);
    EXPECT_EQ(memory.data(), nullptr);
    EXPECT_EQ(names(), std::vector<std::string>{NAME});
    EXPECT_EQ(attach(memory), Result::joined) << "once it is free";
}

TEST_F(SharedMemoryOfAName, FailsForNoName) {
    SharedMemory memory;
    EXPECT_EQ(memory.attach(nullptr, SIZE, fill, joinFilled), Result::failed);
    EXPECT_EQ(memory.attach("", SIZE, fill, joinFilled), Result::failed);
    EXPECT_TRUE(names().empty());
    SharedMemory::unlink(nullptr);
}

// Somebody else's new object appears while a stale one is looked at, or while one is being made.
TEST_F(SharedMemoryOfAName, IsJoinedWhenSomebodyElseWasFasterToReplaceIt) {
    static SharedMemory faster;
    put(std::string(SIZE, 's'));
    SharedMemory memory;
    const auto join = [](void* found) {
        if (isFilled(found))
            return Joining::JOINED;
        SharedMemory::unlink(NAME);
        EXPECT_EQ(attach(faster), Result::created);
        return Joining::REFUSED;
    };
    EXPECT_EQ(memory.attach(NAME, SIZE, fill, join), Result::joined);
    faster.detach();
}

TEST_F(SharedMemoryOfAName, IsJoinedWhenSomebodyElseWasFasterToMakeIt) {
    static SharedMemory faster;
    SharedMemory memory;
    const auto setUp = [](void* own) {
        EXPECT_EQ(attach(faster), Result::created);
        return fill(own);
    };
    EXPECT_EQ(memory.attach(NAME, SIZE, setUp, joinFilled), Result::joined);
    EXPECT_EQ(names(), std::vector<std::string>{NAME});
    faster.detach();
}

TEST_F(SharedMemoryOfAName, IsNotWaitedForForEverWhereSomebodyKeepsOthersFromReplacingIt) {
    put("stale");
    FileDescriptor folder(open("/dev/shm", O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    ASSERT_EQ(flock(folder.number(), LOCK_EX), 0);
    SharedMemory memory;
    EXPECT_EQ(attach(memory), Result::failed);
    EXPECT_EQ(memory.data(), nullptr);
    folder.close();
    EXPECT_EQ(attach(memory), Result::created);
}

TEST_F(SharedMemoryOfAName, IsMadeWithoutTheHelpOfProcToo) {
    SharedMemory first;
    SharedMemory second;
    {
        const Mounted noProc("/proc", "");
        if (!noProc)
            GTEST_SKIP() << "nothing can be mounted here";
        EXPECT_EQ(attach(first), Result::created);
        EXPECT_EQ(attach(second), Result::joined);
    }
    EXPECT_EQ(names(), std::vector<std::string>{NAME}) << "no other name is left";
}

TEST_F(SharedMemoryOfAName, IsNotTouchedWhereThereIsNoRoomForIt) {
    const Mounted small("/dev/shm", "size=1");
    if (!small)
        GTEST_SKIP() << "nothing can be mounted here";
    std::ofstream("/dev/shm/all", std::ios::binary) << std::string(1 << 20, 'a');
    SharedMemory memory;
    EXPECT_EQ(attach(memory), Result::failed);
    put("");
    std::filesystem::resize_file(PATH, SIZE); // a hole, for which there is no room either
    EXPECT_EQ(attach(memory), Result::failed);
    EXPECT_EQ(memory.data(), nullptr);
}

// The limit stays with the process, and so does what was printed: each try is one of its own, and these
// tests come before all others, as the name of their suite makes them.
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
TEST(SharedMemoryLimitDeathTest, IsSaidOnceInsteadOfEndingTheProcess) {
    constexpr std::size_t LARGE = 100000; // the test's standard error is a file, too
    EXPECT_EXIT(
        attachTwice(LARGE - 1, LARGE, Result::failed), testing::ExitedWithCode(0),
        testing::MatchesRegex("platwifi: the shared memory object /shared_memory_test cannot be "
                              "used .File too large.;[^\n]*\n"));
    EXPECT_EXIT(attachTwice(0, SIZE, Result::failed), testing::ExitedWithCode(0),
                testing::IsEmpty())
        << "where not even the line may be written";
    EXPECT_EXIT(attachTwice(LARGE, LARGE, Result::created), testing::ExitedWithCode(0),
                testing::IsEmpty());
    EXPECT_TRUE(names().empty());
}

// PEER-9
TEST(SharedMemoryLimitDeathTest, DoesNotKeepAProcessFromJoining) {
    SharedMemory other;
    ASSERT_EQ(attach(other), Result::created);
    const auto join = [] {
        const rlimit none{0, RLIM_INFINITY};
        setrlimit(RLIMIT_FSIZE, &none);
        SharedMemory memory;
        std::_Exit(attach(memory) == Result::joined ? 0 : 1);
    };
    EXPECT_EXIT(join(), testing::ExitedWithCode(0), testing::IsEmpty());
    SharedMemory::unlink(NAME);
}

} // namespace
