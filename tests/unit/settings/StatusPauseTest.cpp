// A refresh of the status asks the supplicant once in five seconds.

#include "StatusTest.h"

#include "support/Checkpoint.h"
#include "support/Doing.h"

using test::LIST_NETWORKS;
using test::SCAN_RESULTS;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

const std::string HOME = "0\thome\tany\t\n";

class StatusPause : public test::StatusTest {
protected:
    /// Loads "home"; the client lists it afterwards.
    void loadHome() {
        load(HOME);
        scriptLoad(HOME);
    }

    bool refreshAfter(int milliseconds) {
        time.advance(std::chrono::milliseconds(milliseconds));
        return settings().refreshDatabaseNetworksStatus();
    }

    void expectSkippedAfter(int milliseconds) {
        EXPECT_TRUE(refreshAfter(milliseconds));
        EXPECT_THAT(commands(), IsEmpty());
    }

    void expectRunAfter(int milliseconds) {
        EXPECT_TRUE(refreshAfter(milliseconds));
        EXPECT_THAT(commands(), ElementsAre(LIST_NETWORKS, SCAN_RESULTS));
        scriptLoad(HOME);
    }

    /// Runs `work`, which asks for the list; 4000 ms pass during the query.
    template <typename Work>
    void delay(const Work& work) {
        test::Checkpoint checkpoint("/tmp/checkpoint");
        standIn.reset();
        standIn.on({"-iwlan0", "list_networks"})
            .pausesAt(checkpoint.path())
            .prints(test::LIST_HEADER + HOME);
        standIn.answersLoad(HOME, "");
        {
            const test::Doing working(work);
            checkpoint.awaitArrival();
            time.advance(std::chrono::seconds(4));
            checkpoint.letGo();
        }
        scriptLoad(HOME);
    }
};

// STATUS-1
TEST_F(StatusPause, BeginsWithTheFirstLoad) {
    loadHome();
    expectSkippedAfter(0);
    expectSkippedAfter(4999);
    expectRunAfter(1);
}

TEST_F(StatusPause, BeginsBeforeTheFirstLoadAsksAnything) {
    delay([] { reload(); });
    expectSkippedAfter(999);
    expectRunAfter(1);
}

TEST_F(StatusPause, BeginsAnewWithEveryRefreshThatWasNotSkipped) {
    loadHome();
    expectRunAfter(5000);
    expectSkippedAfter(0);
    expectSkippedAfter(2500);
    expectSkippedAfter(2499);
    expectRunAfter(1);
    expectRunAfter(60000);
}

// STATUS-1
TEST_F(StatusPause, IsOverAfterAReloadOfEverything) {
    loadHome();
    refreshAll(HOME);
    scriptLoad(HOME);
    expectRunAfter(0);
    expectSkippedAfter(0);
}

TEST_F(StatusPause, CountsFromTheZeroOfTheClockAfterAReloadOfEverything) {
    loadHome();
    refreshAll(HOME);
    scriptLoad(HOME);
    time.clockIs(4999);
    expectSkippedAfter(0);
    expectRunAfter(1);
}

// STATUS-1
TEST_F(StatusPause, FollowsAFailureToo) {
    load(HOME);
    EXPECT_FALSE(refreshAfter(5000));
    EXPECT_THAT(commands(), ElementsAre(LIST_NETWORKS));
    EXPECT_TRUE(refreshAfter(4999));
    EXPECT_THAT(commands(), ElementsAre(LIST_NETWORKS));
    EXPECT_FALSE(refreshAfter(1));
    EXPECT_THAT(commands(), ElementsAre(LIST_NETWORKS, LIST_NETWORKS));
}

// STATUS-1
TEST_F(StatusPause, CountsFromBeforeTheQueries) {
    loadHome();
    delay([this] { refreshAfter(5000); });
    expectSkippedAfter(999);
    expectRunAfter(1);
}

TEST_F(StatusPause, IsCutShortByAClockThatGoesBackwards) {
    loadHome();
    time.clockIs(999999);
    expectRunAfter(0);
    expectSkippedAfter(0);
}

// The time of a failed load counts as zero.
TEST_F(StatusPause, IsKeptAfterALoadThatFailed) {
    fail();
    scriptLoad(HOME);
    EXPECT_FALSE(refreshAfter(0));
    expectSkippedAfter(0);
    EXPECT_FALSE(refreshAfter(5000)) << "there is no adapter to ask";
    EXPECT_THAT(commands(), IsEmpty());
}

} // namespace
