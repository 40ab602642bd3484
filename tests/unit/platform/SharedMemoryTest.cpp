#include "NamedSharedMemory.h"

#include "support/Files.h"

#include <gmock/gmock.h>

#include <cstdlib>
#include <sys/resource.h>

namespace {

using namespace test;

TEST_F(NamedSharedMemory, IsCreatedByTheFirstAndJoinedByTheNext) {
    SharedMemory first;
    SharedMemory second;
    EXPECT_EQ(first.data(), nullptr);
    EXPECT_EQ(attach(first), Result::CREATED);
    EXPECT_EQ(attach(second), Result::JOINED);
    ASSERT_NE(second.data(), first.data());
    static_cast<char*>(first.data())[OBJECT_SIZE - 1] = 'y';
    EXPECT_EQ(static_cast<char*>(second.data())[OBJECT_SIZE - 1], 'y');
    EXPECT_EQ(names(), std::vector<std::string>{OBJECT});
}

TEST_F(NamedSharedMemory, IsKeptByItsUsersWithoutItsName) {
    SharedMemory first;
    SharedMemory second;
    attach(first);
    SharedMemory::unlink(OBJECT);
    EXPECT_EQ(attach(second), Result::CREATED);
    *static_cast<char*>(first.data()) = 'y';
    EXPECT_EQ(*static_cast<char*>(second.data()), FILLED);
}

TEST_F(NamedSharedMemory, IsUnmappedWhenItIsDetached) {
    const auto isMapped = [] {
        return test::contentOf("/proc/self/maps").find(OBJECT_PATH) != std::string::npos;
    };
    put(std::string(OBJECT_SIZE, FILLED));
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
    for (const std::size_t size :
         {std::size_t{0}, OBJECT_SIZE - 1, OBJECT_SIZE + 1, std::size_t{100000}}) {
        put(std::string(size, FILLED));
        EXPECT_EQ(attach(memory), Result::CREATED) << size;
        memory.detach();
    }
}

TEST_F(NamedSharedMemory, GetsNoNameWhenItCannotBeSetUp) {
    EXPECT_EQ(memory.attach(OBJECT, OBJECT_SIZE, never, joinFilled), Result::FAILED);
    EXPECT_EQ(memory.data(), nullptr);
    EXPECT_TRUE(names().empty());
}

TEST_F(NamedSharedMemory, FailsIfAFolderHasTheName) {
    std::filesystem::create_directory(OBJECT_PATH);
    EXPECT_EQ(attach(memory), Result::FAILED);
    EXPECT_EQ(memory.data(), nullptr);
    EXPECT_TRUE(std::filesystem::remove(OBJECT_PATH)) << "it still exists";
}

TEST_F(NamedSharedMemory, KeepsItsNameWhenItIsBusy) {
    put(std::string(OBJECT_SIZE, FILLED));
    const auto busy = [](void*) { return Joining::BUSY; };
    EXPECT_EQ(memory.attach(OBJECT, OBJECT_SIZE, fill, busy), Result::FAILED);
    EXPECT_EQ(memory.data(), nullptr);
    EXPECT_EQ(names(), std::vector<std::string>{OBJECT});
    EXPECT_EQ(attach(memory), Result::JOINED) << "once it is free";
}

TEST_F(NamedSharedMemory, FailsWithoutAName) {
    EXPECT_EQ(memory.attach(nullptr, OBJECT_SIZE, fill, joinFilled), Result::FAILED);
    EXPECT_EQ(memory.attach("", OBJECT_SIZE, fill, joinFilled), Result::FAILED);
    EXPECT_TRUE(names().empty());
    SharedMemory::unlink(nullptr);
}

TEST_F(NamedSharedMemory, IsNotMappedWhenTheFileSystemIsFull) {
    const Mounted small("/dev/shm", "size=1");
    if (!small)
        GTEST_SKIP() << "nothing can be mounted here";
    std::ofstream("/dev/shm/all", std::ios::binary) << std::string(1 << 20, 'a');
    EXPECT_EQ(attach(memory), Result::FAILED);
    put("");
    std::filesystem::resize_file(OBJECT_PATH,
                                 OBJECT_SIZE); // a sparse file, for which there is no space either
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
        asExpected = SharedMemory().attach(OBJECT, size, accept, join) == expected && asExpected;
        SharedMemory::unlink(OBJECT);
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
    EXPECT_EXIT(attachTwice(0, OBJECT_SIZE, Result::FAILED), testing::ExitedWithCode(0),
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
    SharedMemory::unlink(OBJECT);
}

} // namespace
