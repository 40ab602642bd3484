#include "platform/PlatformUtil.h"

#include <gtest/gtest.h>

#include <future>
#include <set>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>
#include <vector>

namespace {

int idOfANewThread() {
    return std::async(std::launch::async, PlatformUtil::threadId).get();
}

TEST(ThreadId, StaysTheSame) {
    EXPECT_GE(PlatformUtil::threadId(), 0);
    EXPECT_EQ(PlatformUtil::threadId(), PlatformUtil::threadId());
}

TEST(ThreadId, DiffersFromThoseOfAllOtherThreads) {
    constexpr std::size_t THREADS = 300;
    std::promise<void> end;
    const auto gate = end.get_future().share();
    std::vector<std::promise<int>> ids(THREADS);
    std::vector<std::thread> threads;
    for (std::promise<int>& id : ids) {
        threads.emplace_back([&id, gate] {
            id.set_value(PlatformUtil::threadId());
            gate.wait();
        });
    }
    std::set<int> different{PlatformUtil::threadId()};
    for (std::promise<int>& id : ids)
        different.insert(id.get_future().get());
    end.set_value();
    for (std::thread& thread : threads)
        thread.join();
    EXPECT_EQ(different.size(), THREADS + 1);
}

// An id in memory may be that of a thread that has ended.
TEST(ThreadId, IsNotGivenAgainAtOnce) {
    EXPECT_NE(idOfANewThread(), idOfANewThread());
}

TEST(ThreadId, IsGivenAgain) {
    std::set<int> different;
    for (int i = 0; i < 2000; ++i)
        different.insert(idOfANewThread());
    EXPECT_LT(different.size(), 1000U);
}

TEST(ThreadId, DiffersFromThoseOfAnotherProcess) {
    const int own = PlatformUtil::threadId();
    const pid_t other = fork();
    if (other == 0)
        _exit(PlatformUtil::threadId() == own ? 1 : 0);
    int status = -1;
    ASSERT_EQ(waitpid(other, &status, 0), other);
    EXPECT_EQ(status, 0);
}

} // namespace
