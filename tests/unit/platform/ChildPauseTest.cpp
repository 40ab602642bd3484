#include "platform/ChildPause.h"

#include "support/ChildEnds.h"
#include "support/ThreadState.h"

#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

namespace {

using std::chrono::milliseconds;
using std::chrono::steady_clock;

constexpr int HOUR = 3600 * 1000;
constexpr int EXIT_STATUS = 7;

/// A child that ends with EXIT_STATUS on request. The destructor reaps it.
class Child {
public:
    Child() {
        if (pipe(m_pipe) != 0)
            return;
        m_id = fork();
        if (m_id == 0) {
            close(m_pipe[1]);
            char byte = 0;
            static_cast<void>(!read(m_pipe[0], &byte, 1));
            _exit(EXIT_STATUS);
        }
    }
    ~Child() {
        requestEnd();
        close(m_pipe[0]);
        close(m_pipe[1]);
        if (m_id != -1) {
            EXPECT_EQ(reap(), EXIT_STATUS) << "a pause takes no exit status";
        }
    }
    Child(const Child&) = delete;
    Child& operator=(const Child&) = delete;

    int id() const { return m_id; }

    void requestEnd() { static_cast<void>(!write(m_pipe[1], "x", 1)); }

    // Returns when the child has ended; it can still be reaped.
    void end() {
        requestEnd();
        siginfo_t info{};
        ASSERT_EQ(waitid(P_PID, static_cast<id_t>(m_id), &info, WEXITED | WNOWAIT), 0);
    }

    int reap() {
        int status = 0;
        const bool reaped = waitpid(m_id, &status, 0) == m_id;
        m_id = -1;
        return reaped && WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    }

private:
    int m_pipe[2] = {-1, -1};
    int m_id = -1;
};

void awaitSleep(const std::atomic<int>& thread) {
    while (thread == 0 || !test::isAsleep(thread))
        std::this_thread::yield();
}

milliseconds lengthOf(ChildPause& pause, int asked) {
    const auto start = steady_clock::now();
    pause.pause(asked);
    return std::chrono::floor<milliseconds>(steady_clock::now() - start);
}

class EarlyChildPause : public testing::Test {
protected:
    void SetUp() override {
        if (!test::systemNotifiesOfChildEnd())
            GTEST_SKIP() << "this system cannot notify of the end of a child";
    }
    Child child;
};

TEST_F(EarlyChildPause, EndsWithTheChild) {
    ChildPause pause(child.id());
    std::atomic<int> thread{0};
    std::thread sleeper([&] {
        thread = test::ownThread();
        pause.pause(HOUR);
    });
    awaitSleep(thread);
    child.requestEnd();
    sleeper.join();
}

TEST_F(EarlyChildPause, IsZeroWhenTheChildHasEndedSince) {
    ChildPause pause(child.id());
    child.end();
    pause.pause(HOUR);
}

TEST_F(EarlyChildPause, IsZeroWhenTheChildHadEndedBefore) {
    child.end();
    ChildPause pause(child.id());
    pause.pause(HOUR);
}

TEST_F(EarlyChildPause, IsShortenedOnce) {
    ChildPause pause(child.id());
    child.end();
    pause.pause(HOUR);
    EXPECT_GE(lengthOf(pause, 30), milliseconds(30));
}

TEST_F(EarlyChildPause, IsNotShortenedByAnotherChild) {
    Child other;
    ChildPause pause(child.id());
    other.end();
    EXPECT_GE(lengthOf(pause, 30), milliseconds(30));
}

TEST_F(EarlyChildPause, LastsWhileTheChildRuns) {
    ChildPause pause(child.id());
    EXPECT_GE(lengthOf(pause, 30), milliseconds(30));
    EXPECT_GE(lengthOf(pause, 30), milliseconds(30));
    pause.pause(0);
    pause.pause(-1);
}

TEST(ChildPause, IsPlainSleepWithoutNotificationOfTheChildsEnd) {
    Child child;
    child.end();
    bool refused = false;
    std::thread([&] {
        refused = test::refuseChildEndNotification();
        if (!refused)
            return;
        EXPECT_FALSE(test::systemNotifiesOfChildEnd());
        ChildPause pause(child.id());
        EXPECT_GE(lengthOf(pause, 30), milliseconds(30));
    }).join();
    if (!refused)
        GTEST_SKIP() << "no system call filter can be set here";
}

TEST(ChildPause, IsPlainSleepForAProcessThatIsNoChild) {
    int reaped = -1;
    {
        Child child;
        reaped = child.id();
    }
    for (const int id : {reaped, 0, -1}) {
        ChildPause pause(id);
        EXPECT_GE(lengthOf(pause, 30), milliseconds(30)) << id;
    }
}

} // namespace
