#include "platform/PlatformUtil.h"

#include "support/RobustMutex.h"
#include "support/SignalAction.h"

#include <gtest/gtest.h>

#include <atomic>
#include <cerrno>
#include <chrono>
#include <csignal>
#include <cstdlib>
#include <future>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

namespace {

using std::chrono::milliseconds;
using std::chrono::steady_clock;

steady_clock::time_point now() {
    return steady_clock::now();
}

class PlatformMutexTest : public testing::Test {
protected:
    void SetUp() override { ASSERT_EQ(PlatformUtil::createMutex(&mutex), 0); }
    void TearDown() override { EXPECT_EQ(PlatformUtil::destroyMutex(&mutex), 0); }

    void lock(int times) {
        for (int i = 0; i < times; ++i)
            ASSERT_EQ(PlatformUtil::lockMutex(&mutex), 0);
    }

    // What a function of a mutex returns on another thread.
    template <typename... Arguments, typename... Values>
    int onAnotherThread(int (*function)(PlatformMutex*, Arguments...) noexcept, Values... values) {
        int result = -1;
        std::thread([&] { result = function(&mutex, values...); }).join();
        return result;
    }

    // Whether another thread can take the mutex. It is free again then.
    bool isFree() {
        bool locked = false;
        std::thread([&] {
            const int result = PlatformUtil::tryLockMutex(&mutex);
            locked = result == 0 && PlatformUtil::unlockMutex(&mutex) == 0;
            EXPECT_TRUE(locked || result == EBUSY);
        }).join();
        return locked;
    }

    PlatformMutex mutex;
};

TEST_F(PlatformMutexTest, IsRecursiveForItsHolderOnly) {
    lock(2);
    ASSERT_EQ(PlatformUtil::unlockMutex(&mutex), 0);
    EXPECT_FALSE(isFree());
    ASSERT_EQ(PlatformUtil::unlockMutex(&mutex), 0);
    EXPECT_TRUE(isFree());
}

TEST_F(PlatformMutexTest, CanBeDestroyedByTheThreadThatHoldsIt) {
    for (int depth = 0; depth <= 3; ++depth) {
        lock(depth);
        EXPECT_EQ(PlatformUtil::destroyMutex(&mutex), 0) << "held " << depth << " times";
        ASSERT_EQ(PlatformUtil::createMutex(&mutex), 0);
    }
}

TEST_F(PlatformMutexTest, IsReleasedCompletely) {
    for (int depth = 0; depth <= 3; ++depth) {
        lock(depth);
        EXPECT_EQ(PlatformUtil::releaseMutex(&mutex), 0);
        EXPECT_TRUE(isFree()) << "held " << depth << " times";
    }
}

TEST_F(PlatformMutexTest, IsNotReleasedByAnotherThread) {
    lock(1);
    EXPECT_EQ(onAnotherThread(PlatformUtil::releaseMutex), 0);
    EXPECT_FALSE(isFree());
}

TEST_F(PlatformMutexTest, IsNotWaitedForWithADeadlineBeforeTheStartOfTheClock) {
    lock(1);
    const steady_clock::time_point past(std::chrono::hours(-1));
    EXPECT_EQ(onAnotherThread(PlatformUtil::lockMutexUntil, past), ETIMEDOUT);
}

TEST_F(PlatformMutexTest, IsWaitedForUntilTheDeadline) {
    EXPECT_EQ(PlatformUtil::lockMutexUntil(&mutex, now()), 0);
    EXPECT_EQ(PlatformUtil::lockMutexUntil(&mutex, now()), 0) << "its holder may lock it again";
    EXPECT_EQ(onAnotherThread(PlatformUtil::lockMutexUntil, now() + milliseconds(1)), ETIMEDOUT);
    PlatformUtil::releaseMutex(&mutex);
}

TEST_F(PlatformMutexTest, IsLockedWhenItIsReleasedBeforeTheDeadline) {
    lock(1);
    std::thread waiting([this] {
        EXPECT_EQ(PlatformUtil::lockMutexUntil(&mutex, now() + std::chrono::hours(1)), 0);
        PlatformUtil::unlockMutex(&mutex);
    });
    PlatformUtil::unlockMutex(&mutex);
    waiting.join();
}

TEST(PlatformMutex, RefusesNull) {
    EXPECT_EQ(PlatformUtil::createMutex(nullptr), EINVAL);
    EXPECT_EQ(PlatformUtil::lockMutex(nullptr), EINVAL);
    EXPECT_EQ(PlatformUtil::lockMutexUntil(nullptr, now()), EINVAL);
    EXPECT_EQ(PlatformUtil::unlockMutex(nullptr), EINVAL);
    EXPECT_EQ(PlatformUtil::destroyMutex(nullptr), EINVAL);
    EXPECT_EQ(PlatformUtil::releaseMutex(nullptr), EINVAL);
    EXPECT_EQ(PlatformUtil::createSharedMutex(nullptr, true), EINVAL);
    EXPECT_EQ(PlatformUtil::makeMutexConsistent(nullptr), EINVAL);
}

class SharedPlatformMutex : public testing::TestWithParam<bool> {
protected:
    void SetUp() override { ASSERT_EQ(PlatformUtil::createSharedMutex(&mutex, GetParam()), 0); }
    void TearDown() override { EXPECT_EQ(PlatformUtil::destroyMutex(&mutex), 0); }
    PlatformMutex mutex;
};

TEST_P(SharedPlatformMutex, IsRecursiveOnRequest) {
    ASSERT_EQ(PlatformUtil::lockMutex(&mutex), 0);
    EXPECT_EQ(PlatformUtil::tryLockMutex(&mutex), GetParam() ? 0 : EBUSY);
    PlatformUtil::releaseMutex(&mutex);
}

TEST_P(SharedPlatformMutex, IsRecoveredAfterEachDeathOfItsHolder) {
    if (!test::systemHasRobustMutexes())
        GTEST_SKIP() << "this system does not recover the mutexes of a dead process";
    for (int death = 0; death < 2; ++death) {
        std::thread([this] { EXPECT_EQ(PlatformUtil::lockMutex(&mutex), 0); }).join();
        EXPECT_EQ(PlatformUtil::lockMutex(&mutex), EOWNERDEAD);
        EXPECT_EQ(PlatformUtil::makeMutexConsistent(&mutex), 0);
        EXPECT_EQ(PlatformUtil::unlockMutex(&mutex), 0);
    }
    EXPECT_EQ(PlatformUtil::lockMutex(&mutex), 0);
    EXPECT_EQ(PlatformUtil::unlockMutex(&mutex), 0);
}

INSTANTIATE_TEST_SUITE_P(Recursive, SharedPlatformMutex, testing::Bool());

struct Seen {
    std::promise<void> done;
    int id = 0;
    sigset_t mask;
};

void* observe(void* argument) {
    auto* seen = static_cast<Seen*>(argument);
    seen->id = PlatformUtil::threadId();
    pthread_sigmask(SIG_SETMASK, nullptr, &seen->mask);
    seen->done.set_value();
    return nullptr;
}

void startAndWait(Seen& seen, const char* name) {
    const int id = PlatformUtil::createThread(observe, &seen, name);
    ASSERT_NE(id, -1);
    seen.done.get_future().wait();
    EXPECT_EQ(seen.id, id);
    EXPECT_NE(id, PlatformUtil::threadId());
}

TEST(PlatformThread, RunsTheEntryAndReturnsItsId) {
    Seen seen;
    startAndWait(seen, "tShort");
}

TEST(PlatformThread, AcceptsANullName) {
    Seen seen;
    startAndWait(seen, nullptr);
}

TEST(PlatformThread, BlocksAllSignals) {
    Seen seen;
    startAndWait(seen, "tMask");
    EXPECT_EQ(sigismember(&seen.mask, SIGTERM), 1);
    EXPECT_EQ(sigismember(&seen.mask, SIGCHLD), 1);
    sigset_t own;
    pthread_sigmask(SIG_SETMASK, nullptr, &own);
    EXPECT_EQ(sigismember(&own, SIGTERM), 0) << "the calling thread has its own mask again";
}

TEST(PlatformThread, RefusesANullEntry) {
    EXPECT_EQ(PlatformUtil::createThread(nullptr, nullptr, "t"), -1);
}

TEST(PlatformSleep, LastsAtLeastTheGivenTime) {
    const auto start = steady_clock::now();
    PlatformUtil::sleep(30);
    EXPECT_GE(steady_clock::now() - start, milliseconds(30));
}

std::atomic<int> interruptions{0};

TEST(PlatformSleep, IsNotEndedBySignals) {
    const test::SignalAction counted(SIGUSR1, [](int) { ++interruptions; });
    std::promise<pthread_t> sleeper;
    std::atomic<bool> over{false};
    std::thread thread([&] {
        sleeper.set_value(pthread_self());
        const auto start = steady_clock::now();
        PlatformUtil::sleep(100);
        EXPECT_GE(steady_clock::now() - start, milliseconds(100));
        over = true;
    });
    const pthread_t target = sleeper.get_future().get();
    while (!over) {
        pthread_kill(target, SIGUSR1);
        std::this_thread::yield();
    }
    thread.join();
    EXPECT_GT(interruptions, 0);
}

TEST(PlatformSleep, ReturnsAtOnceForZeroAndLess) {
    PlatformUtil::sleep(0);
    PlatformUtil::sleep(-5);
}

TEST(PlatformKill, EndsAProcessThatIgnoresSignals) {
    int ready[2];
    ASSERT_EQ(pipe(ready), 0);
    const pid_t child = fork();
    if (child == 0) {
        std::signal(SIGTERM, SIG_IGN);
        std::signal(SIGINT, SIG_IGN);
        static_cast<void>(!write(ready[1], "x", 1));
        for (;;)
            ::pause();
    }
    char byte = 0;
    ASSERT_EQ(read(ready[0], &byte, 1), 1);
    EXPECT_EQ(PlatformUtil::killProcess(child), 0);
    int status = 0;
    ASSERT_EQ(waitpid(child, &status, 0), child);
    EXPECT_TRUE(WIFSIGNALED(status));
    close(ready[0]);
    close(ready[1]);
}

TEST(PlatformKill, RefusesProcessGroups) {
    EXPECT_EQ(PlatformUtil::killProcess(0), -1);
    EXPECT_EQ(PlatformUtil::killProcess(-1), -1);
    EXPECT_EQ(errno, EINVAL);
}

} // namespace
