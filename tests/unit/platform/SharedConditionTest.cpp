#include "platform/SharedCondition.h"

#include "platform/MutexGuard.h"
#include "platform/SharedMemory.h"
#include "support/RobustMutex.h"
#include "support/SignalAction.h"
#include "support/ThreadState.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <chrono>
#include <csignal>
#include <functional>
#include <future>
#include <thread>
#include <utility>
#include <vector>

namespace {

thread_local std::function<void()> afterNextUnlock;

} // namespace

// Replaces the function of the platform library in this program.
int PlatformUtil::unlockMutex(PlatformMutex* mutex) noexcept {
    const int result = pthread_mutex_unlock(mutex);
    if (const auto action = std::exchange(afterNextUnlock, nullptr))
        action();
    return result;
}

namespace {

using platform::SharedCondition;
using platform::SharedMemory;
using std::chrono::hours;
using std::chrono::milliseconds;
using std::chrono::steady_clock;

/// The contents of the shared memory.
struct Shared {
    PlatformMutex mutex;
    SharedCondition condition;
    int value;
};

bool setUp(void* memory) {
    auto* const shared = static_cast<Shared*>(memory);
    shared->condition.setUp();
    return PlatformUtil::createSharedMutex(&shared->mutex, false) == 0;
}

SharedMemory::Joining join(void* memory) {
    return static_cast<Shared*>(memory)->condition.isSetUp() ? SharedMemory::Joining::JOINED
                                                             : SharedMemory::Joining::REFUSED;
}

/// The same memory at two addresses, as in two processes.
class SharedConditionTest : public testing::Test {
protected:
    SharedConditionTest() {
        EXPECT_EQ(here.attach("/condition", sizeof(Shared), setUp, join),
                  SharedMemory::Result::CREATED);
        EXPECT_EQ(there.attach("/condition", sizeof(Shared), setUp, join),
                  SharedMemory::Result::JOINED);
        SharedMemory::unlink("/condition");
    }

    Shared& own() { return *static_cast<Shared*>(here.data()); }
    Shared& others() { return *static_cast<Shared*>(there.data()); }

    static int waitFor(Shared& shared, std::chrono::nanoseconds time) {
        return shared.condition.wait(shared.mutex, steady_clock::now() + time);
    }

    SharedMemory here;
    SharedMemory there;
};

/// A thread that runs a function. The constructor returns when the thread sleeps in it.
template <typename Result>
struct Sleeper {
    std::promise<int> id;
    std::future<Result> result;
    int thread;
    template <typename Action>
    explicit Sleeper(Action action)
        : result(std::async(std::launch::async,
                            [this, action] {
                                id.set_value(test::ownThread());
                                return action();
                            })),
          thread(id.get_future().get()) {
        while (!test::isAsleep(thread))
            std::this_thread::yield();
    }
};

TEST_F(SharedConditionTest, IsDistinguishedFromOtherMemory) {
    SharedCondition zero{};
    EXPECT_FALSE(zero.isSetUp());
    SharedCondition garbage{0x5a5a5a5a, 0x5a5a5a5a};
    EXPECT_FALSE(garbage.isSetUp());
    garbage.setUp();
    EXPECT_TRUE(garbage.isSetUp());
    garbage.end();
    EXPECT_FALSE(garbage.isSetUp());
}

TEST_F(SharedConditionTest, WaitsUntilTheDeadlineAndHoldsTheMutexAgain) {
    const MutexGuard guard(own().mutex);
    const auto start = steady_clock::now();
    EXPECT_EQ(waitFor(own(), milliseconds(50)), ETIMEDOUT);
    EXPECT_GE(steady_clock::now() - start, milliseconds(50));
    EXPECT_EQ(PlatformUtil::tryLockMutex(&others().mutex), EBUSY);
}

TEST_F(SharedConditionTest, DoesNotWaitForADeadlineThatHasPassed) {
    const MutexGuard guard(own().mutex);
    EXPECT_EQ(waitFor(own(), milliseconds(0)), ETIMEDOUT);
    EXPECT_EQ(waitFor(own(), -hours(1)), ETIMEDOUT);
}

TEST_F(SharedConditionTest, DoesNotWaitForADeadlineBeforeTheStartOfTheClock) {
    const MutexGuard guard(own().mutex);
    for (const std::chrono::nanoseconds time :
         {std::chrono::nanoseconds(0), std::chrono::nanoseconds(-1),
          std::chrono::nanoseconds(hours(-1))}) {
        const steady_clock::time_point deadline{
            std::chrono::duration_cast<steady_clock::duration>(time)};
        EXPECT_EQ(own().condition.wait(own().mutex, deadline), ETIMEDOUT) << time.count();
    }
}

TEST_F(SharedConditionTest, WakesAllThreadsAtAnyAddress) {
    std::vector<std::unique_ptr<Sleeper<int>>> sleepers;
    for (int i = 0; i < 4; ++i) {
        sleepers.push_back(std::make_unique<Sleeper<int>>([this] {
            const MutexGuard guard(own().mutex);
            return waitFor(own(), hours(1));
        }));
    }
    others().condition.broadcast();
    for (const auto& sleeper : sleepers)
        EXPECT_EQ(sleeper->result.get(), 0);
}

// From that moment another process may change the data and broadcast.
TEST_F(SharedConditionTest, SeesABroadcastRightAfterItHasUnlockedTheMutex) {
    const MutexGuard guard(own().mutex);
    afterNextUnlock = [this] { others().condition.broadcast(); };
    EXPECT_EQ(waitFor(own(), std::chrono::seconds(1)), 0);
}

// After a lost wake-up one of the two threads would wait for an hour.
TEST_F(SharedConditionTest, LosesNoBroadcast) {
    constexpr int TURNS = 2000;
    const auto play = [](Shared& shared, int parity) {
        const MutexGuard guard(shared.mutex);
        while (shared.value < TURNS) {
            if (shared.value % 2 == parity) {
                ++shared.value;
                shared.condition.broadcast();
            } else {
                waitFor(shared, hours(1));
            }
        }
    };
    std::thread other([&] { play(others(), 1); });
    play(own(), 0);
    other.join();
    EXPECT_EQ(own().value, TURNS);
}

TEST_F(SharedConditionTest, IsNotEndedBySignals) {
    const test::SignalAction ignored(SIGUSR1, [](int) {});
    std::promise<pthread_t> self;
    Sleeper<int> sleeper([&] {
        self.set_value(pthread_self());
        const MutexGuard guard(own().mutex);
        return waitFor(own(), milliseconds(200));
    });
    pthread_kill(self.get_future().get(), SIGUSR1);
    EXPECT_EQ(sleeper.result.get(), ETIMEDOUT);
}

TEST_F(SharedConditionTest, ReportsThatTheHolderOfTheMutexHasDied) {
    if (!test::systemHasRobustMutexes())
        GTEST_SKIP() << "this system does not recover the mutexes of a dead process";
    Sleeper<int> sleeper([this] {
        PlatformUtil::lockMutex(&own().mutex);
        const int error = waitFor(own(), hours(1));
        PlatformUtil::makeMutexConsistent(&own().mutex);
        PlatformUtil::unlockMutex(&own().mutex);
        return error;
    });
    std::thread([this] {
        PlatformUtil::lockMutex(&own().mutex);
        own().condition.broadcast();
    }).join();
    EXPECT_EQ(sleeper.result.get(), EOWNERDEAD);
    EXPECT_EQ(PlatformUtil::lockMutex(&own().mutex), 0);
    PlatformUtil::unlockMutex(&own().mutex);
}

} // namespace
