// A refresh of the status asks the supplicant once in five seconds.

#include "StatusFixture.h"

#include "support/Checkpoint.h"
#include "support/Doing.h"

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

const std::string HOME = "0\thome\tany\t\n";
const std::string LIST = "-iwlan0 list_networks";
const std::string SCAN = "-iwlan0 scan_results";

class StatusPause : public test::StatusFixture {
protected:
    static bool refreshNow() { return settings().refreshDatabaseNetworksStatus(); }

    // The same after some time.
    bool refreshAfter(int milliseconds) {
        time.advance(std::chrono::milliseconds(milliseconds));
        return refreshNow();
    }

    void expectSkipped(bool result) const {
        EXPECT_TRUE(result);
        EXPECT_THAT(commands(), IsEmpty());
    }

    void expectRun(bool result) {
        EXPECT_TRUE(result);
        EXPECT_THAT(commands(), ElementsAre(LIST, SCAN));
        replies(HOME);
    }
};

// STATUS-1
TEST_F(StatusPause, BeginsWithTheFirstLoad) {
    load(HOME);
    replies(HOME);
    expectSkipped(refreshNow());
    expectSkipped(refreshAfter(4999));
    expectRun(refreshAfter(1));
}

TEST_F(StatusPause, BeginsBeforeTheFirstLoadAsksAnything) {
    test::Checkpoint checkpoint("/tmp/checkpoint");
    standIn.on({"-iwlan0", "list_networks"})
        .pausesAt(checkpoint.path())
        .prints(test::LIST_HEADER + HOME);
    script(HOME);
    {
        const test::Doing loading([this] { load(); });
        checkpoint.awaitArrival();
        time.advance(std::chrono::seconds(4));
        checkpoint.letGo();
    }
    replies(HOME);
    expectSkipped(refreshAfter(999));
    expectRun(refreshAfter(1));
}

TEST_F(StatusPause, BeginsAnewWithEveryRefreshThatWasNotSkipped) {
    load(HOME);
    replies(HOME);
    expectRun(refreshAfter(5000));
    expectSkipped(refreshNow());
    expectSkipped(refreshAfter(2500));
    expectSkipped(refreshAfter(2499));
    expectRun(refreshAfter(1));
    expectRun(refreshAfter(60000));
}

// STATUS-1
TEST_F(StatusPause, IsOverAfterAReloadOfEverything) {
    load(HOME);
    load(HOME);
    replies(HOME);
    expectRun(refreshNow());
    expectSkipped(refreshNow());
}

TEST_F(StatusPause, CountsFromTheZeroOfTheClockAfterAReloadOfEverything) {
    load(HOME);
    load(HOME);
    replies(HOME);
    time.clockIs(4999);
    expectSkipped(refreshNow());
    time.clockIs(5000);
    expectRun(refreshNow());
}

// STATUS-1
TEST_F(StatusPause, FollowsAFailureToo) {
    load(HOME);
    standIn.on({"*"}).exits(255);
    EXPECT_FALSE(refreshAfter(5000));
    EXPECT_THAT(commands(), ElementsAre(LIST));
    EXPECT_TRUE(refreshAfter(4999));
    EXPECT_THAT(commands(), ElementsAre(LIST));
    EXPECT_FALSE(refreshAfter(1));
    EXPECT_THAT(commands(), ElementsAre(LIST, LIST));
}

// STATUS-1
TEST_F(StatusPause, CountsFromBeforeTheQueries) {
    load(HOME);
    test::Checkpoint checkpoint("/tmp/checkpoint");
    standIn.on({"-iwlan0", "list_networks"}).pausesAt(checkpoint.path());
    script(HOME);
    {
        const test::Doing refreshing([this] { refreshAfter(5000); });
        checkpoint.awaitArrival();
        time.advance(std::chrono::seconds(4));
        checkpoint.letGo();
    }
    replies(HOME);
    expectSkipped(refreshAfter(999));
    expectRun(refreshAfter(1));
}

TEST_F(StatusPause, IsCutShortByAClockThatGoesBackwards) {
    load(HOME);
    replies(HOME);
    time.clockIs(999999);
    expectRun(refreshNow());
    expectSkipped(refreshNow());
}

// The time of a failed load counts as zero.
TEST_F(StatusPause, IsKeptByAnInstanceThatCouldNotBeLoaded) {
    standIn.on({"*"}).exits(255);
    load();
    standIn.reset();
    script(HOME);
    EXPECT_FALSE(refreshNow());
    expectSkipped(refreshNow());
    EXPECT_FALSE(refreshAfter(5000)) << "there is no adapter to ask";
    EXPECT_THAT(commands(), IsEmpty());
}

} // namespace
