#include "support/TestTime.h"

#include "platform/ChildPause.h"
#include "platform/Deadline.h"
#include "platform/PlatformUtil.h"
#include "support/ChildEnds.h"
#include "support/ThreadState.h"
#include "zam/Zam.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cerrno>
#include <csignal>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

using std::chrono::milliseconds;
using std::chrono::seconds;
using std::chrono::steady_clock;
using test::TestTime;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

constexpr unsigned int LONG_WAIT = 10000; // in seconds, and no test takes as long
constexpr int LONG_SLEEP = 3600000;       // in milliseconds

bool isFar(steady_clock::time_point deadline) {
    return deadline - steady_clock::now() > seconds(LONG_WAIT / 2);
}

std::uint64_t reading() {
    return Zam::getInstance()->milliseconds();
}

std::uint64_t realReading() {
    const auto now = steady_clock::now().time_since_epoch();
    return static_cast<std::uint64_t>(std::chrono::duration_cast<milliseconds>(now).count());
}

void expectRealClock() {
    const std::uint64_t before = realReading();
    const std::uint64_t shown = reading();
    EXPECT_GE(shown, before);
    EXPECT_LE(shown, realReading());
}

/// A child that only waits.
class Child {
public:
    Child() : m_id(fork()) {
        if (m_id == 0)
            for (;;)
                pause();
    }
    ~Child() {
        ::kill(m_id, SIGKILL);
        waitpid(m_id, nullptr, 0);
    }
    Child(const Child&) = delete;
    Child& operator=(const Child&) = delete;

    int id() const { return m_id; }

    bool hasEnded() const {
        siginfo_t info{};
        waitid(P_PID, static_cast<id_t>(m_id), &info, WEXITED | WNOHANG | WNOWAIT);
        return info.si_pid == m_id;
    }

private:
    pid_t m_id;
};

/// A mutex that another thread holds.
class HeldMutex {
public:
    HeldMutex() {
        PlatformUtil::createMutex(&mutex);
        PlatformUtil::lockMutex(&mutex);
    }
    ~HeldMutex() { PlatformUtil::destroyMutex(&mutex); }
    HeldMutex(const HeldMutex&) = delete;
    HeldMutex& operator=(const HeldMutex&) = delete;

    int lockElsewhere(steady_clock::duration wait) {
        int result = 0;
        std::thread([&] {
            result = PlatformUtil::lockMutexUntil(&mutex, steady_clock::now() + wait);
        }).join();
        return result;
    }

    PlatformMutex mutex{};
};

TEST(Time, IsRealUnlessATestChoosesAnother) {
    TestTime time;
    EXPECT_TRUE(isFar(platform::deadlineAfter(LONG_WAIT)));
    const auto start = steady_clock::now();
    PlatformUtil::sleep(20);
    EXPECT_GE(steady_clock::now() - start, milliseconds(20));
    expectRealClock();
    EXPECT_THAT(time.events(), IsEmpty());
}

TEST(Time, IsRestoredByTheEndOfEachObject) {
    TestTime outer([](TestTime& time) {
        time.deadlinesAre(milliseconds(0));
        time.clockIs(7);
    });
    {
        TestTime inner;
        EXPECT_FALSE(isFar(platform::deadlineAfter(LONG_WAIT)));
        EXPECT_EQ(reading(), 7U);
        inner.deadlinesAre(seconds(1));
        inner.advance(milliseconds(3));
        EXPECT_TRUE(isFar(platform::deadlineAfter(LONG_WAIT)));
        EXPECT_EQ(reading(), 10U);
    }
    EXPECT_FALSE(isFar(platform::deadlineAfter(LONG_WAIT)));
    EXPECT_EQ(reading(), 7U);
}

TEST(Time, IsRealAfterTheLastObject) {
    {
        TestTime time;
        time.deadlinesAre(milliseconds(0));
        time.sleepsAreRecorded();
        time.childrenAreRecorded();
        time.clockIs(7);
        PlatformUtil::sleep(LONG_SLEEP);
    }
    EXPECT_TRUE(isFar(platform::deadlineAfter(LONG_WAIT)));
    expectRealClock();
    const Child child;
    EXPECT_EQ(PlatformUtil::killProcess(child.id()), 0);
    EXPECT_EQ(PlatformUtil::killProcess(0), -1);
    EXPECT_THAT(TestTime().events(), IsEmpty());
}

TEST(Time, IsThatOfTheParentInAForkedProcess) {
    TestTime time;
    time.clockIs(7);
    EXPECT_EXIT(std::_Exit(static_cast<int>(reading())), testing::ExitedWithCode(7), "");
}

TEST(Time, IsTheSameForAllThreads) {
    TestTime time;
    time.clockIs(7);
    std::uint64_t seen = 0;
    std::thread([&] { seen = reading(); }).join();
    EXPECT_EQ(seen, 7U);
}

TEST(Time, HasQuickDeadlinesAndSleeps) {
    TestTime time;
    time.deadlinesAre(milliseconds(0));
    time.sleepsAre(milliseconds(0));
    EXPECT_FALSE(isFar(platform::deadlineAfter(LONG_WAIT)));
    PlatformUtil::sleep(LONG_SLEEP);
}

TEST(Time, RecordsDeadlinesAndSleepsInOrder) {
    TestTime time;
    time.deadlinesAreRecorded();
    time.sleepsAreRecorded();
    int sleeps = 0;
    std::size_t atSecond = 0;
    time.duringSleeps([&] { ++sleeps; });
    time.atEvent(2, [&] { atSecond = time.events().size(); });
    platform::deadlineAfter(1);
    PlatformUtil::sleep(LONG_SLEEP);
    PlatformUtil::sleep(1);
    EXPECT_THAT(time.events(), ElementsAre("deadline 1", "sleep 3600000", "sleep 1"));
    EXPECT_EQ(sleeps, 1);
    EXPECT_EQ(atSecond, 2U);
    time.clearRecord();
    EXPECT_THAT(time.events(), IsEmpty());
}

TEST(Time, RecordsPausesAndKillsAndIgnoresTheFirstKills) {
    TestTime time;
    time.childrenAreRecorded(1);
    const Child child;
    ChildPause(child.id()).pause(LONG_SLEEP);
    EXPECT_EQ(PlatformUtil::killProcess(child.id()), 0);
    EXPECT_FALSE(child.hasEnded());
    EXPECT_EQ(PlatformUtil::killProcess(child.id()), 0);
    EXPECT_TRUE(child.hasEnded());
    EXPECT_THAT(time.events(), ElementsAre("pause 3600000", "kill", "kill"));
    EXPECT_THAT(time.killed(), ElementsAre(child.id(), child.id()));
}

TEST(Time, HasPausesThatLastUntilTheChildEnds) {
    if (!test::systemNotifiesOfChildEnd())
        GTEST_SKIP() << "this system does not report the end of a child";
    TestTime time;
    time.pausesEndWithTheChild();
    const Child child;
    ChildPause untilEnd(child.id());
    const int waiting = test::ownThread();
    std::thread killing([&] {
        while (!test::isAsleep(waiting))
            std::this_thread::yield();
        PlatformUtil::killProcess(child.id());
    });
    untilEnd.pause(0);
    EXPECT_TRUE(child.hasEnded());
    killing.join();
}

TEST(Time, HasShortWaitsForLocks) {
    TestTime time;
    time.lockWaitsAre(milliseconds(0));
    HeldMutex held;
    std::thread waiting([&] { EXPECT_EQ(held.lockElsewhere(seconds(LONG_WAIT)), ETIMEDOUT); });
    waiting.join();
    EXPECT_EQ(time.lockTimeouts(), 1);
    EXPECT_GT(time.longestLockWait(), seconds(LONG_WAIT / 2));
    EXPECT_LE(time.longestLockWait(), seconds(LONG_WAIT));
}

TEST(Time, CountsWaitsForLocksInRealTimeToo) {
    const TestTime time;
    HeldMutex held;
    const auto start = steady_clock::now();
    EXPECT_EQ(held.lockElsewhere(milliseconds(20)), ETIMEDOUT);
    EXPECT_GE(steady_clock::now() - start, milliseconds(20));
    EXPECT_EQ(time.lockTimeouts(), 1);
    EXPECT_EQ(PlatformUtil::lockMutexUntil(nullptr, start), EINVAL);
}

} // namespace
