// POSIX gives an object its name before it is set up: a lock keeps others from it until then.

#include "../NamedSharedMemory.h"

#include "platform/FileDescriptor.h"
#include "platform/PlatformUtil.h"

#include <csignal>
#include <fcntl.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

namespace {

using namespace test;

// Of this user, whose id is in the name.
std::string lockPath() {
    return "/tmp/platwifi." + std::to_string(geteuid()) + ".lock";
}

bool fillSlowly(void* memory) {
    auto* const bytes = static_cast<char*>(memory);
    for (std::size_t i = 0; i < OBJECT_SIZE; ++i) {
        bytes[i] = FILLED;
        PlatformUtil::sleep(1);
    }
    return true;
}

// Any other byte than FILLED is of an unfinished object.
Joining joinFinished(void* memory) {
    auto* const bytes = static_cast<char*>(memory);
    const bool isFinished =
        std::count(bytes, bytes + OBJECT_SIZE, FILLED) == static_cast<long>(OBJECT_SIZE);
    return isFinished ? Joining::JOINED : Joining::REFUSED;
}

Result attachSlowly(SharedMemory& memory) {
    return memory.attach(OBJECT, OBJECT_SIZE, fillSlowly, joinFinished);
}

TEST_F(NamedSharedMemory, IsMadeByOneProcessAndJoinedByAllOthers) {
    for (int round = 0; round < 5; ++round) {
        pid_t processes[8];
        for (pid_t& process : processes) {
            process = fork();
            if (process == 0)
                _exit(static_cast<int>(attachSlowly(*new SharedMemory)));
        }
        int created = 0;
        int joined = 0;
        for (const pid_t process : processes) {
            int status = -1;
            ASSERT_EQ(waitpid(process, &status, 0), process);
            created += WEXITSTATUS(status) == static_cast<int>(Result::CREATED) ? 1 : 0;
            joined += WEXITSTATUS(status) == static_cast<int>(Result::JOINED) ? 1 : 0;
        }
        EXPECT_EQ(created, 1);
        EXPECT_EQ(joined, 7);
        SharedMemory::unlink(OBJECT);
    }
}

TEST_F(NamedSharedMemory, IsMadeByOneThreadAndJoinedByAllOthers) {
    SharedMemory memories[8];
    std::vector<std::thread> threads;
    std::vector<Result> results(std::size(memories), Result::FAILED);
    for (std::size_t i = 0; i < std::size(memories); ++i)
        threads.emplace_back([&, i] { results[i] = attachSlowly(memories[i]); });
    for (std::thread& thread : threads)
        thread.join();
    EXPECT_EQ(std::count(results.begin(), results.end(), Result::CREATED), 1);
    EXPECT_EQ(std::count(results.begin(), results.end(), Result::JOINED), 7);
}

int progress = -1; // a pipe

bool fillForEver(void* memory) {
    *static_cast<char*>(memory) = FILLED;
    static_cast<void>(!write(progress, "x", 1));
    for (;;)
        pause();
}

TEST_F(NamedSharedMemory, IsNotSeenUnfinishedWhenItsMakerIsStoppedOrKilled) {
    int ends[2];
    ASSERT_EQ(pipe(ends), 0);
    progress = ends[1];
    const pid_t maker = fork();
    if (maker == 0)
        _exit(
            static_cast<int>(SharedMemory().attach(OBJECT, OBJECT_SIZE, fillForEver, joinFilled)));
    char byte = ' ';
    EXPECT_EQ(read(ends[0], &byte, 1), 1);
    EXPECT_EQ(attach(memory), Result::FAILED) << "after a second";
    kill(maker, SIGKILL);
    waitpid(maker, nullptr, 0);
    EXPECT_EQ(memory.attach(OBJECT, OBJECT_SIZE, fill, joinFinished), Result::CREATED);
    close(ends[0]);
    close(ends[1]);
}

TEST_F(NamedSharedMemory, NeedsALockFileOfThisUser) {
    std::filesystem::remove(lockPath());
    std::ofstream(lockPath()) << "foreign";
    if (chown(lockPath().c_str(), 65534, 65534) == 0) {
        EXPECT_EQ(attach(memory), Result::FAILED);
        EXPECT_EQ(std::filesystem::file_size(lockPath()), 7U) << "unchanged";
    }
    std::filesystem::remove(lockPath());
    std::filesystem::create_symlink("/tmp/target", lockPath());
    EXPECT_EQ(attach(memory), Result::FAILED);
    EXPECT_FALSE(std::filesystem::exists("/tmp/target"));
    std::filesystem::remove(lockPath());
    EXPECT_EQ(attach(memory), Result::CREATED);
    struct stat status {};
    ASSERT_EQ(stat(lockPath().c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 07777, mode_t{0600});
}

} // namespace
