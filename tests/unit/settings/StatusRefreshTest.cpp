// A refresh reads the supplicant's list again: the status of the networks, and which one is current.

#include "StatusTest.h"

#include "support/Checkpoint.h"
#include "support/Doing.h"

using test::LIST_NETWORKS;
using test::SCAN_RESULTS;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

const std::string CURRENT_WORK = "1\twork\tany\t[CURRENT]\n";

class StatusRefresh : public test::StatusTest {
protected:
    StatusRefresh() { loadBoth(); }
};

TEST_F(StatusRefresh, AsksForTheListAndTheScanOfTheFirstAdapter) {
    adapters = "wlan0\nwlan1\n";
    loadBoth();
    EXPECT_TRUE(refresh("0\thome\tany\t[DISABLED]\n"));
    EXPECT_THAT(commands(), ElementsAre(LIST_NETWORKS, SCAN_RESULTS));
    EXPECT_EQ(statusOf("home"), NETWORK_STATUS_DISABLED);
    expectNoLockHeld();
}

TEST_F(StatusRefresh, GivesEveryNetworkTheStatusOfItsFlag) {
    struct Row {
        const char* flags;
        unsigned int before;
        unsigned int after;
    };
    const Row rows[] = {
        {"", NETWORK_STATUS_UNKNOWN, NETWORK_STATUS_ENABLED},
        {"", NETWORK_STATUS_CONNECTED, NETWORK_STATUS_ENABLED},
        {"", NETWORK_STATUS_CONNECTING, NETWORK_STATUS_ENABLED},
        {"", NETWORK_STATUS_DISABLED, NETWORK_STATUS_ENABLED},
        {"[DISABLED]", NETWORK_STATUS_ENABLED, NETWORK_STATUS_DISABLED},
        {"[DISABLED]", NETWORK_STATUS_CONNECTED, NETWORK_STATUS_DISABLED},
        {"[CURRENT]", NETWORK_STATUS_UNKNOWN, NETWORK_STATUS_CONNECTING},
        {"[CURRENT]", NETWORK_STATUS_ENABLED, NETWORK_STATUS_CONNECTING},
        {"[CURRENT]", NETWORK_STATUS_CONNECTING, NETWORK_STATUS_CONNECTING},
        {"[CURRENT]", NETWORK_STATUS_DISABLED, NETWORK_STATUS_CONNECTING},
        {"[CURRENT]", NETWORK_STATUS_CONNECTED, NETWORK_STATUS_CONNECTED},
        {"[CURRENT][DISABLED]", NETWORK_STATUS_CONNECTED, NETWORK_STATUS_DISABLED},
        {"[TEMP-DISABLED]", NETWORK_STATUS_DISABLED, NETWORK_STATUS_ENABLED},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.flags);
        setNoCurrent();
        setStatus("home", row.before);
        EXPECT_TRUE(refresh(std::string("0\thome\tany\t") + row.flags + "\n1\twork\tany\t\n"));
        EXPECT_EQ(statusOf("home"), row.after);
        EXPECT_EQ(statusOf("work"), NETWORK_STATUS_ENABLED);
        EXPECT_EQ(current(), std::string(row.flags) == "[CURRENT]" ? "home" : "none");
    }
}

// Only the number at the beginning says which network a line is of.
TEST_F(StatusRefresh, FindsANetworkByItsId) {
    struct Row {
        const char* line;
        bool isOfWork;
    };
    const Row rows[] = {
        {"1\twork\tany\t[DISABLED]", true},
        {"1\thome\tany\t[DISABLED]", true},
        {"1 work any [DISABLED]", true},
        {" \t 1 work any [DISABLED]", true},
        {"1[DISABLED]", true},
        {"01x [DISABLED]", true},
        {"1\t[DISABLED]\tany\t", true},
        {"2\twork\tany\t[DISABLED]", false},
        {"10\twork\tany\t[DISABLED]", false},
        {"257\twork\tany\t[DISABLED]", false}, // a load would take it for 1
        {"-1\twork\tany\t[DISABLED]", false},
        {"work\t1\tany\t[DISABLED]", false},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.line);
        setStatus("work", NETWORK_STATUS_UNKNOWN);
        EXPECT_TRUE(refresh(std::string(row.line) + "\n"));
        EXPECT_EQ(statusOf("work"),
                  row.isOfWork ? NETWORK_STATUS_DISABLED : NETWORK_STATUS_UNKNOWN);
    }
}

// STATUS-8
TEST_F(StatusRefresh, TakesWhatIsNoNumberForTheFirstNetwork) {
    setStatus("home", NETWORK_STATUS_CONNECTED);
    EXPECT_TRUE(refresh("FAIL\n"));
    EXPECT_EQ(statusOf("home"), NETWORK_STATUS_ENABLED);
}

TEST_F(StatusRefresh, LetsTheLastLineOfANetworkCount) {
    EXPECT_TRUE(refresh("0\thome\tany\t[DISABLED]\n0\thome\tany\t\n"));
    EXPECT_EQ(statusOf("home"), NETWORK_STATUS_ENABLED);
}

// STATUS-6
TEST_F(StatusRefresh, TakesTheFirst32Lines) {
    std::string lines;
    for (int i = 0; i < 31; ++i)
        lines += std::to_string(100 + i) + "\tx\tany\t\n";
    EXPECT_TRUE(refresh(lines + "0\thome\tany\t[DISABLED]\n1\twork\tany\t[DISABLED]\n"));
    EXPECT_EQ(statusOf("home"), NETWORK_STATUS_DISABLED);
    EXPECT_EQ(statusOf("work"), NETWORK_STATUS_ENABLED);
}

TEST_F(StatusRefresh, MakesTheNetworkWithTheFlagTheCurrentOne) {
    struct Row {
        const char* current; // before; "" for none
        unsigned int before; // of "home", which is not listed
        unsigned int after;
    };
    const Row rows[] = {
        {"", NETWORK_STATUS_CONNECTED, NETWORK_STATUS_CONNECTED},
        {"work", NETWORK_STATUS_CONNECTED, NETWORK_STATUS_CONNECTED},
        {"home", NETWORK_STATUS_CONNECTED, NETWORK_STATUS_ENABLED},
        {"home", NETWORK_STATUS_CONNECTING, NETWORK_STATUS_ENABLED},
        {"home", NETWORK_STATUS_DISABLED, NETWORK_STATUS_DISABLED},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.current);
        setCurrent(row.current);
        setStatus("home", row.before);
        setStatus("work", NETWORK_STATUS_CONNECTED);
        EXPECT_TRUE(refresh(CURRENT_WORK));
        EXPECT_EQ(current(), "work");
        EXPECT_EQ(statusOf("work"), NETWORK_STATUS_CONNECTED);
        EXPECT_EQ(statusOf("home"), row.after);
    }
}

// Networks are updated in the order of memory, the last one of the list first.
TEST_F(StatusRefresh, StaysWithTheFirstListedOfSeveralWithTheFlag) {
    EXPECT_TRUE(refresh("0\thome\tany\t[CURRENT]\n1\twork\tany\t[CURRENT]\n"));
    EXPECT_EQ(current(), "home");
    EXPECT_EQ(statusOf("home"), NETWORK_STATUS_CONNECTING);
    EXPECT_EQ(statusOf("work"), NETWORK_STATUS_ENABLED);
}

TEST_F(StatusRefresh, TakesNetworksWithOneSsidForOne) {
    const WifiNetwork* const home = network("home");
    setCurrent("home");
    setStatus("home", NETWORK_STATUS_CONNECTED);
    network("work")->setSsid("home");
    EXPECT_TRUE(refresh(CURRENT_WORK));
    EXPECT_EQ(currentNetwork(), home);
    EXPECT_EQ(home->getNetworkStatus(), NETWORK_STATUS_CONNECTED);
}

TEST_F(StatusRefresh, ClearsACurrentNetworkThatIsEnabledOrDisabled) {
    struct Row {
        const char* list;
        unsigned int before; // of "home"
        const char* current;
    };
    const Row rows[] = {
        {"1\twork\tany\t\n", NETWORK_STATUS_UNKNOWN, "home"},
        {"1\twork\tany\t\n", NETWORK_STATUS_ENABLED, "none"},
        {"1\twork\tany\t\n", NETWORK_STATUS_CONNECTED, "home"},
        {"1\twork\tany\t\n", NETWORK_STATUS_CONNECTING, "home"},
        {"1\twork\tany\t\n", NETWORK_STATUS_DISABLED, "none"},
        {"0\thome\tany\t\n", NETWORK_STATUS_CONNECTED, "none"},
        {"0\thome\tany\t[DISABLED]\n", NETWORK_STATUS_CONNECTED, "none"},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.list + std::to_string(row.before));
        setCurrent("home");
        setStatus("home", row.before);
        EXPECT_TRUE(refresh(row.list));
        if (row.list[0] == '1') {
            EXPECT_EQ(statusOf("home"), row.before) << "it is not listed";
        }
        EXPECT_EQ(current(), row.current);
    }
}

TEST_F(StatusRefresh, LeavesTheSupplicantsStateAlone) {
    setState("COMPLETED");
    EXPECT_TRUE(refresh(CURRENT_WORK));
    EXPECT_EQ(state(), WPA_STATE_COMPLETED);
}

TEST_F(StatusRefresh, ChangesNothingWithoutAList) {
    setCurrent("home");
    setStatus("home", NETWORK_STATUS_DISABLED);
    EXPECT_FALSE(refreshLater());
    EXPECT_THAT(commands(), ElementsAre(LIST_NETWORKS));
    EXPECT_EQ(current(), "home");
    expectNoLockHeld();
}

TEST_F(StatusRefresh, SucceedsWithoutAScan) {
    setCurrent("home");
    standIn.on({"-iwlan0", "scan_results"}).exits(255);
    standIn.answersLoad("0\thome\tany\t[DISABLED]\n", "");
    EXPECT_TRUE(refreshLater());
    EXPECT_THAT(commands(), ElementsAre(LIST_NETWORKS, SCAN_RESULTS));
    EXPECT_EQ(statusOf("home"), NETWORK_STATUS_DISABLED);
    EXPECT_EQ(current(), "none");
    expectNoLockHeld();
}

// What has been read until then stays. Nothing more is asked, and no current network is cleared.
// STATUS-7
TEST_F(StatusRefresh, EndsAtALineWithoutAnyField) {
    for (const std::string line : {" ", "\t", "\t \t "}) {
        SCOPED_TRACE(line);
        loadBoth();
        setCurrent("work");
        EXPECT_FALSE(refresh("0\thome\tany\t[DISABLED]\n1\twork\tany\t[DISABLED]\n" + line +
                             "\n1\twork\tany\t\n"));
        EXPECT_THAT(commands(), ElementsAre(LIST_NETWORKS));
        EXPECT_EQ(statusOf("work"), NETWORK_STATUS_DISABLED) << "the first one in memory";
        EXPECT_EQ(statusOf("home"), NETWORK_STATUS_ENABLED);
        EXPECT_EQ(current(), "work");
        expectNoLockHeld();
    }
}

TEST_F(StatusRefresh, ReadsNoLineWithoutNetworks) {
    load("");
    EXPECT_TRUE(refresh(" \n"));
    EXPECT_THAT(commands(), ElementsAre(LIST_NETWORKS, SCAN_RESULTS)) << "unlike a load";
}

TEST_F(StatusRefresh, FailsWithoutAdapter) {
    fail();
    EXPECT_FALSE(refreshLater());
    EXPECT_THAT(commands(), IsEmpty());
    expectNoLockHeld();
}

TEST_F(StatusRefresh, HoldsTheLocksBetweenItsQueries) {
    test::Checkpoint listing("/tmp/list");
    test::Checkpoint scanning("/tmp/scan");
    standIn.on({"-iwlan0", "list_networks"}).pausesAt(listing.path());
    standIn.on({"-iwlan0", "scan_results"}).pausesAt(scanning.path());
    const test::Doing refreshing([this] { refreshLater(); });
    listing.awaitArrival();
    listing.letGo();
    scanning.awaitArrival();
    const test::Doing waiting([] { expectNoLockHeld(); });
    waiting.awaitRest();
    EXPECT_FALSE(waiting.isDone());
    scanning.letGo();
}

} // namespace
