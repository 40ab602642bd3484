#include "platform/OnceWarning.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <sys/resource.h>
#include <thread>
#include <vector>

namespace {

using testing::internal::CaptureStderr;
using testing::internal::GetCapturedStderr;

TEST(OnceWarning, IsPrintedOnce) {
    platform::OnceWarning warning;
    CaptureStderr();
    warning.print("no client; install it");
    warning.print("no client; install it");
    EXPECT_EQ(GetCapturedStderr(), "platwifi: no client; install it\n");
}

TEST(OnceWarning, IsPrintedOnceByManyThreads) {
    platform::OnceWarning warning;
    CaptureStderr();
    std::vector<std::thread> threads;
    for (int i = 0; i < 8; ++i)
        threads.emplace_back([&warning] { warning.print("once"); });
    for (std::thread& thread : threads)
        thread.join();
    EXPECT_EQ(GetCapturedStderr(), "platwifi: once\n");
}

TEST(OnceWarning, DoesNotEndAProcessWithAFullLog) {
    const auto warn = [](rlim_t limit) {
        const rlimit limits{limit, RLIM_INFINITY};
        setrlimit(RLIMIT_FSIZE, &limits);
        platform::OnceWarning warning;
        warning.print("a line");
        std::_Exit(0);
    };
    EXPECT_EXIT(warn(10), testing::ExitedWithCode(0), testing::IsEmpty());
    EXPECT_EXIT(warn(1000), testing::ExitedWithCode(0), testing::Eq("platwifi: a line\n"));
}

} // namespace
