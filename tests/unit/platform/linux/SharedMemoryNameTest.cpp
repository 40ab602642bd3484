// On Linux an object gets its name after it was set up.

#include "../NamedSharedMemory.h"
#include "platform/FileDescriptor.h"

#include <fcntl.h>
#include <sys/file.h>

namespace {

using namespace test;
using platform::FileDescriptor;

// Another process makes its object while this one checks a stale one, or while it makes its own.
TEST_F(NamedSharedMemory, IsJoinedWhenAnotherProcessReplacesItFirst) {
    static SharedMemory first;
    put(std::string(OBJECT_SIZE, 's'));
    const auto join = [](void* found) {
        if (isFilled(found))
            return Joining::JOINED;
        SharedMemory::unlink(OBJECT);
        EXPECT_EQ(attach(first), Result::CREATED);
        return Joining::REFUSED;
    };
    EXPECT_EQ(memory.attach(OBJECT, OBJECT_SIZE, fill, join), Result::JOINED);
    first.detach();
}

TEST_F(NamedSharedMemory, IsJoinedWhenAnotherProcessMakesItFirst) {
    static SharedMemory first;
    const auto setUp = [](void* own) {
        EXPECT_EQ(attach(first), Result::CREATED);
        return fill(own);
    };
    EXPECT_EQ(memory.attach(OBJECT, OBJECT_SIZE, setUp, joinFilled), Result::JOINED);
    EXPECT_EQ(names(), std::vector<std::string>{OBJECT});
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
    EXPECT_EQ(names(), std::vector<std::string>{OBJECT}) << "no temporary name is left";
}

} // namespace
