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

// Runs `work` with the n-th allocation failing, until there are no more.
void failEach(const char* name, int step, void (*prepare)(), void (*work)(std::size_t),
              std::size_t which = 0) {
    int runs = 0;
    for (int n = 1 + static_cast<int>(which) % step; n <= MOST; n += step) {
        const FailedRun run(n, prepare, work, which);
        ASSERT_NE(run.outcome(), Outcome::WRONG)
            << name << ", allocation " << n << ": " << run.what();
        if (run.outcome() == Outcome::NO_FAILURE)
            break;
        ++runs;
    }
    EXPECT_GT(runs + step, 1) << name << " makes no allocation";
}

TEST(AFailedAllocation, DoesNoHarmInALoad) {
    failEach("load", stride(7), test::nothingYet, test::load);
}

TEST(AFailedAllocation, DoesNoHarmInASave) {
    failEach("save", 1, test::edited, test::save);
}

TEST(AFailedAllocation, DoesNoHarmInAReload) {
    failEach("reload", stride(7), test::loaded, test::reload);
}

TEST(AFailedAllocation, DoesNoHarmInANative) {
    for (std::size_t i = 0; i < test::NATIVE_COUNT; ++i) {
        SCOPED_TRACE(test::NATIVES[i].name);
        failEach(test::NATIVES[i].name, stride(2), test::edited, test::callNative, i);
    }
}

// Those of processes that have ended go when the next one starts its driver.
TEST(AFailedAllocation, LeavesNothingBehindTheNextProcess) {
    failEach("load", stride(7), test::nothingYet, test::load);
    EXPECT_EQ(test::leftBehindTheNextProcess(), "");
}

} // namespace
