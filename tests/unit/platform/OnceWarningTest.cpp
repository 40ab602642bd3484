#include "platform/OnceWarning.h"

#include <gtest/gtest.h>

#include <thread>
#include <vector>

namespace {

using testing::internal::CaptureStderr;
using testing::internal::GetCapturedStderr;

TEST(OnceWarning, IsOneLineHoweverOftenItsCauseComesBack) {
    platform::OnceWarning warning;
    CaptureStderr();
    warning.print("no client; install it");
    warning.print("no client; install it");
    EXPECT_EQ(GetCapturedStderr(), "platwifi: no client; install it\n");
}

TEST(OnceWarning, IsOneLineFromManyThreads) {
    platform::OnceWarning warning;
    CaptureStderr();
    std::vector<std::thread> threads;
    for (int i = 0; i < 8; ++i)
        threads.emplace_back([&warning] { warning.print("once"); });
    for (std::thread& thread : threads)
        thread.join();
    EXPECT_EQ(GetCapturedStderr(), "platwifi: once\n");
}

} // namespace
