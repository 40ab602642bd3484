// What the supplicant's list tells when it is read again: statuses, and which network is current.

#include "StatusFixture.h"

#include "MissingWifiUtil.h"
#include "support/Checkpoint.h"
#include "support/Doing.h"

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

const std::string LIST = "-iwlan0 list_networks";
const std::string SCAN = "-iwlan0 scan_results";

const char* const CURRENT_WORK = "1\twork\tany\t[CURRENT]\n";

class StatusRefresh : public test::StatusFixture {};

TEST_F(StatusRefresh, AsksForTheListAndTheScanOfTheFirstAdapter) {
    standIn.on({"interface"}).prints(test::ADAPTER_HEADER + "wlan0\nwlan1\n");
    load("0\thome\tany\t\n");
    EXPECT_TRUE(refresh("0\thome\tany\t[DISABLED]\n"));
    EXPECT_THAT(commands(), ElementsAre(LIST, SCAN));
    EXPECT_EQ(statusOf("home"), NETWORK_STATUS_DISABLED);
    expectNoLockHeld();
}

TEST_F(StatusRefresh, GivesEveryNetworkTheStatusThatItsMarkStandsFor) {
    struct Row {
        const char* marks;
        unsigned int before;
        int after;
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
    loadBoth();
    for (const Row& row : rows) {
        SCOPED_TRACE(row.marks);
        setStatus("home", row.before);
        setCurrent(nullptr);
        EXPECT_TRUE(refresh(std::string("0\thome\tany\t") + row.marks + "\n1\twork\tany\t\n"));
        EXPECT_EQ(statusOf("home"), row.after);
        EXPECT_EQ(statusOf("work"), NETWORK_STATUS_ENABLED);
        EXPECT_EQ(current(), std::string(row.marks) == "[CURRENT]" ? "home" : "none");
    }
}

// Only the number at the beginning tells which network a line is of.
TEST_F(StatusRefresh, FindsANetworkByItsNumber) {
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
        {"257\twork\tany\t[DISABLED]", false}, // one that was loaded would have become 1
        {"-1\twork\tany\t[DISABLED]", false},
        {"work\t1\tany\t[DISABLED]", false},
    };
    loadBoth();
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
    loadBoth();
    setStatus("home", NETWORK_STATUS_CONNECTED);
    EXPECT_TRUE(refresh("FAIL\n"));
    EXPECT_EQ(statusOf("home"), NETWORK_STATUS_ENABLED);
}

TEST_F(StatusRefresh, LetsTheLastLineOfANetworkCount) {
    loadBoth();
    EXPECT_TRUE(refresh("0\thome\tany\t[DISABLED]\n0\thome\tany\t\n"));
    EXPECT_EQ(statusOf("home"), NETWORK_STATUS_ENABLED);
}

// STATUS-6
TEST_F(StatusRefresh, TakesTheFirst32Lines) {
    std::string list;
    for (int i = 0; i < 31; ++i)
        list += std::to_string(100 + i) + "\tx\tany\t\n";
    loadBoth();
    EXPECT_TRUE(refresh(list + "0\thome\tany\t[DISABLED]\n1\twork\tany\t[DISABLED]\n"));
    EXPECT_EQ(statusOf("home"), NETWORK_STATUS_DISABLED);
    EXPECT_EQ(statusOf("work"), NETWORK_STATUS_ENABLED);
}

TEST_F(StatusRefresh, MovesToTheNetworkThatIsMarkedCurrent) {
    struct Row {
        const char* current; // before
        unsigned int before; // of "home", which is not listed
        int after;
    };
    const Row rows[] = {
        {nullptr, NETWORK_STATUS_CONNECTED, NETWORK_STATUS_CONNECTED},
        {"work", NETWORK_STATUS_CONNECTED, NETWORK_STATUS_CONNECTED},
        {"home", NETWORK_STATUS_CONNECTED, NETWORK_STATUS_ENABLED},
        {"home", NETWORK_STATUS_CONNECTING, NETWORK_STATUS_ENABLED},
        {"home", NETWORK_STATUS_DISABLED, NETWORK_STATUS_DISABLED},
    };
    loadBoth();
    for (const Row& row : rows) {
        SCOPED_TRACE(row.current ? row.current : "none");
        setCurrent(row.current);
        setStatus("home", row.before);
        setStatus("work", NETWORK_STATUS_CONNECTED);
        EXPECT_TRUE(refresh(CURRENT_WORK));
        EXPECT_EQ(current(), "work");
        EXPECT_EQ(statusOf("work"), NETWORK_STATUS_CONNECTED);
        EXPECT_EQ(statusOf("home"), row.after);
    }
}

// Networks are gone through from the last one that was loaded.
TEST_F(StatusRefresh, StaysWithTheFirstLoadedOfSeveralThatAreMarked) {
    loadBoth();
    EXPECT_TRUE(refresh("0\thome\tany\t[CURRENT]\n1\twork\tany\t[CURRENT]\n"));
    EXPECT_EQ(current(), "home");
    EXPECT_EQ(statusOf("home"), NETWORK_STATUS_CONNECTING);
    EXPECT_EQ(statusOf("work"), NETWORK_STATUS_ENABLED);
}

TEST_F(StatusRefresh, TakesNetworksOfOneNameForOne) {
    loadBoth();
    WifiNetwork* const home = record("home");
    setStatus("home", NETWORK_STATUS_CONNECTED);
    setCurrent("home");
    record("work")->setSsid("home");
    EXPECT_TRUE(refresh(CURRENT_WORK));
    EXPECT_EQ(test::currentNetworkOf(settings()), home);
    EXPECT_EQ(home->getNetworkStatus(), NETWORK_STATUS_CONNECTED);
}

TEST_F(StatusRefresh, ReleasesACurrentNetworkThatIsEnabledOrDisabled) {
    struct Row {
        unsigned int status; // of "home", which is not listed
        const char* current;
    };
    const Row rows[] = {
        {NETWORK_STATUS_UNKNOWN, "home"},   {NETWORK_STATUS_ENABLED, "none"},
        {NETWORK_STATUS_CONNECTED, "home"}, {NETWORK_STATUS_CONNECTING, "home"},
        {NETWORK_STATUS_DISABLED, "none"},
    };
    loadBoth();
    for (const Row& row : rows) {
        SCOPED_TRACE(row.status);
        setStatus("home", row.status);
        setCurrent("home");
        EXPECT_TRUE(refresh("1\twork\tany\t\n"));
        EXPECT_EQ(current(), row.current);
        EXPECT_EQ(statusOf("home"), static_cast<int>(row.status));
    }
    for (const char* const mark : {"", "[DISABLED]"}) {
        setStatus("home", NETWORK_STATUS_CONNECTED);
        setCurrent("home");
        EXPECT_TRUE(refresh(std::string("0\thome\tany\t") + mark + "\n"));
        EXPECT_EQ(current(), "none") << mark;
    }
}

TEST_F(StatusRefresh, LeavesTheSupplicantsStateAlone) {
    loadBoth();
    setState(WPA_STATE_COMPLETED);
    EXPECT_TRUE(refresh(CURRENT_WORK));
    EXPECT_EQ(test::supplicantStateOf(settings()), WPA_STATE_COMPLETED);
}

TEST_F(StatusRefresh, ChangesNothingWithoutAList) {
    loadBoth();
    setStatus("home", NETWORK_STATUS_DISABLED);
    setCurrent("home");
    standIn.on({"*"}).exits(255);
    EXPECT_FALSE(refreshLater());
    EXPECT_THAT(commands(), ElementsAre(LIST));
    EXPECT_EQ(current(), "home");
    expectNoLockHeld();
}

TEST_F(StatusRefresh, DoesWithoutAScan) {
    loadBoth();
    setCurrent("home");
    standIn.on({"-iwlan0", "scan_results"}).exits(255);
    script("0\thome\tany\t[DISABLED]\n");
    EXPECT_TRUE(refreshLater());
    EXPECT_THAT(commands(), ElementsAre(LIST, SCAN));
    EXPECT_EQ(statusOf("home"), NETWORK_STATUS_DISABLED);
    EXPECT_EQ(current(), "none");
    expectNoLockHeld();
}

// What has been read until then stays; nothing more is asked, and no current network released.
// STATUS-7
TEST_F(StatusRefresh, EndsAtALineWithoutAnyField) {
    for (const char* const line : {" ", "\t", "\t \t "}) {
        SCOPED_TRACE(line);
        standIn.reset();
        loadBoth();
        setCurrent("work");
        EXPECT_FALSE(refresh(std::string("0\thome\tany\t[DISABLED]\n1\twork\tany\t[DISABLED]\n") +
                             line + "\n1\twork\tany\t\n"));
        EXPECT_THAT(commands(), ElementsAre(LIST));
        EXPECT_EQ(statusOf("work"), NETWORK_STATUS_DISABLED) << "the first one in memory";
        EXPECT_EQ(statusOf("home"), NETWORK_STATUS_ENABLED);
        EXPECT_EQ(current(), "work");
        expectNoLockHeld();
    }
}

TEST_F(StatusRefresh, LooksAtNoLineWithoutNetworks) {
    load("");
    EXPECT_TRUE(refresh(" \n"));
    EXPECT_THAT(commands(), ElementsAre(LIST, SCAN)) << "unlike a load";
}

TEST_F(StatusRefresh, FailsWithoutAdapter) {
    standIn.on({"*"}).exits(255);
    load();
    standIn.reset();
    EXPECT_FALSE(refreshLater());
    EXPECT_THAT(commands(), IsEmpty());
    expectNoLockHeld();
}

TEST_F(StatusRefresh, FailsWithoutWifiUtil) {
    loadBoth();
    setStatus("home", NETWORK_STATUS_DISABLED);
    setCurrent("home");
    {
        const test::MissingWifiUtil missing;
        EXPECT_FALSE(refreshLater());
    }
    EXPECT_THAT(commands(), IsEmpty());
    EXPECT_EQ(current(), "home");
    expectNoLockHeld();
}

TEST_F(StatusRefresh, LetsNobodyInBetweenItsQueries) {
    loadBoth();
    test::Checkpoint list("/tmp/list");
    test::Checkpoint scan("/tmp/scan");
    standIn.on({"-iwlan0", "list_networks"}).pausesAt(list.path());
    standIn.on({"-iwlan0", "scan_results"}).pausesAt(scan.path());
    const test::Doing refreshing([this] { refreshLater(); });
    list.awaitArrival();
    list.letGo();
    scan.awaitArrival();
    const test::Doing waiting([] {
        settings().lockSettings();
        settings().unlockSettings();
    });
    waiting.awaitRest();
    EXPECT_FALSE(waiting.isDone());
    scan.letGo();
}

} // namespace
