// One allocation fails, in the middle of a load, a save or a native. The process may end, by abort();
// it never crashes or hangs, no lock and no file stays, and the next process works.

#include "FailedRun.h"
#include "support/AllNatives.h"

#include <gtest/gtest.h>

#include <cstdlib>

using test::FailedRun;
using test::Outcome;

namespace {

// With PLATWIFI_EVERY_ALLOCATION each allocation fails once; else every `sample`-th one does.
int stride(int sample) {
    return std::getenv("PLATWIFI_EVERY_ALLOCATION") ? 1 : sample;
}

constexpr int MOST = 500;

// Runs `work` with the n-th allocation failing, until there are no more. Adds to `runs` how often one
// has failed.
void failEach(int& runs, const char* name, int step, void (*prepare)(), void (*work)(std::size_t),
              std::size_t which = 0) {
    for (int n = 1 + static_cast<int>(which) % step; n <= MOST; n += step) {
        const FailedRun run(n, prepare, work, which);
        ASSERT_NE(run.outcome(), Outcome::WRONG)
            << name << ", allocation " << n << ": " << run.what();
        if (run.outcome() == Outcome::NO_FAILURE)
            break;
        ++runs;
    }
}

TEST(AFailedAllocation, DoesNoHarmInASave) {
    int runs = 0;
    failEach(runs, "save", 1, test::edited, test::save);
    EXPECT_GT(runs, 1);
}

TEST(AFailedAllocation, DoesNoHarmInAReload) {
    int runs = 0;
    failEach(runs, "reload", stride(7), test::loaded, test::reload);
    EXPECT_GT(runs, 1);
}

TEST(AFailedAllocation, DoesNoHarmInANative) {
    int runs = 0;
    for (std::size_t i = 0; i < test::NATIVE_COUNT; ++i) {
        SCOPED_TRACE(test::NATIVES[i].name);
        failEach(runs, test::NATIVES[i].name, stride(2), test::edited, test::callNative, i);
    }
    EXPECT_GT(runs, 100);
}

// A process removes the files of ended ones when it starts its driver.
TEST(AFailedAllocation, DoesNoHarmInALoadAndLeavesNothingBehindTheNextProcess) {
    int runs = 0;
    failEach(runs, "load", stride(7), test::nothingYet, test::load);
    EXPECT_GT(runs, 1);
    EXPECT_EQ(test::leftBehindTheNextProcess(), "");
}

} // namespace
