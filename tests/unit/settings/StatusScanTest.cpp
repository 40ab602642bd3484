// BSSID, channel, strength and mode of networks, taken from the scan when their status is refreshed.

#include "StatusTest.h"

namespace {

const std::string HOME_AND_WORK = "0\thome\tany\t\n1\twork\tany\t\n";
const std::string HOME_IN_RANGE = "a:b\t2412\t160\t[ESS]\thome\n";

class StatusScan : public test::StatusTest {
protected:
    StatusScan() {
        loadBoth();
        reset();
    }

    // Values that no scan has.
    static void reset() {
        for (const char* const ssid : {"home", "work"}) {
            network(ssid)->setBssid("old");
            network(ssid)->setChannel(99);
            network(ssid)->setStrength(98);
            network(ssid)->setNetworkMode(97);
            network(ssid)->cleanDirtyFields();
        }
    }

    void scan(const std::string& lines) { EXPECT_TRUE(refresh(HOME_AND_WORK, lines)); }

    static void expect(const std::string& ssid, const char* bssid, unsigned int channel,
                       unsigned int strength, unsigned int mode) {
        EXPECT_STREQ(network(ssid)->getBssid(), bssid);
        EXPECT_EQ(network(ssid)->getChannel(), channel);
        EXPECT_EQ(network(ssid)->getStrength(), strength);
        EXPECT_EQ(network(ssid)->getNetworkMode(), mode);
    }

    static void expectOld(const std::string& ssid) { expect(ssid, "old", 99, 98, 97); }
};

TEST_F(StatusScan, UpdatesTheNetworkWhoseSsidALineHas) {
    scan("02:00:00:00:01:00\t2462\t185\t[WPA2-PSK-CCMP][ESS]\thome\n");
    expect("home", "02:00:00:00:01:00", 11, 50, NETWORK_MODE_MANAGED);
    expectOld("work");
    scan("02:00:00:00:01:01\t2472\t-60\t[IBSS]\twork\n");
    expect("work", "02:00:00:00:01:01", 6, 100, NETWORK_MODE_ADHOC);
    expect("home", "02:00:00:00:01:00", 11, 50, NETWORK_MODE_MANAGED);
}

// Unlike a load, which takes a line for a network's only when it is the SSID and nothing else.
// STATUS-4
TEST_F(StatusScan, FindsTheSsidAnywhereInTheLine) {
    for (const std::string line :
         {"a:b\t2412\t160\t[ESS]\thome", "a:b\t2412\t160\t[ESS]\tmy home is here",
          "a:b\t2412\t160\t[ESS] home\tx", "a:b home\t2412\t160\t[ESS]\tx"}) {
        SCOPED_TRACE(line);
        reset();
        scan(line + "\n");
        EXPECT_EQ(network("home")->getChannel(), 1U);
        EXPECT_EQ(network("home")->getStrength(), 0U);
        expectOld("work");
    }
    reset();
    scan("a:b\t2412\t160\t[ESS]\tHome\n");
    expectOld("home");
}

TEST_F(StatusScan, ReadsALineThatALoadDoesNotRead) {
    load(HOME_AND_WORK, "", HOME_IN_RANGE);
    EXPECT_STREQ(network("home")->getBssid(), "00:00:00:00:00:00");
    EXPECT_EQ(network("home")->getChannel(), 0U);
    scan(HOME_IN_RANGE);
    expect("home", "a:b", 1, 0, NETWORK_MODE_MANAGED);
}

// STATUS-4
TEST_F(StatusScan, UpdatesAlsoANetworkWhoseSsidIsPartOfALongerOne) {
    network("work")->setSsid("home-2");
    const std::string line = "a:b\t2412\t160\t[ESS]\thome-2\n";
    scan(line);
    expect("home-2", "a:b", 1, 0, NETWORK_MODE_MANAGED);
    expect("home", "a:b", 1, 0, NETWORK_MODE_MANAGED);
    scan("c:d\t2417\t160\t[ESS]\thome\n" + line);
    EXPECT_STREQ(network("home")->getBssid(), "a:b") << "the last line counts";
    scan(line + "c:d\t2417\t160\t[ESS]\thome\n");
    EXPECT_STREQ(network("home")->getBssid(), "c:d");
    EXPECT_STREQ(network("home-2")->getBssid(), "a:b");
}

TEST_F(StatusScan, StopsAtTheFirstFieldThatIsMissing) {
    network("home")->setSsid(":");
    scan(":\n");
    expect(":", ":", 99, 98, 97);
    scan("a:b\t2412\n");
    expect(":", "a:b", 1, 98, 97);
    scan("c:d\t2417\t185\n");
    expect(":", "c:d", 2, 50, 97);
    scan("e:f\t2422\t160\t[IBSS]\n");
    expect(":", "e:f", 3, 0, NETWORK_MODE_ADHOC);
}

TEST_F(StatusScan, IgnoresAFirstFieldThatIsNoBssid) {
    scan("home\t2412\t160\t[IBSS]\n");
    expect("home", "old", 1, 0, NETWORK_MODE_ADHOC);
}

TEST_F(StatusScan, LeavesNetworksThatWereNotFound) {
    for (const std::string lines : {"", "a:b\t2412\t160\t[ESS]\telsewhere\n"}) {
        scan(lines);
        expectOld("home");
    }
}

// STATUS-6
TEST_F(StatusScan, TakesTheFirst32Lines) {
    std::string lines;
    for (int i = 0; i < 31; ++i)
        lines += "x\n";
    scan(lines + HOME_IN_RANGE + "a:b\t2412\t160\t[ESS]\twork\n");
    EXPECT_EQ(network("home")->getChannel(), 1U);
    expectOld("work");
}

TEST_F(StatusScan, SkipsANetworkWithoutSsid) {
    WifiNetwork* const home = network("home");
    home->setSsid(nullptr);
    scan("a:b\t2412\t160\t[ESS]\twork\n");
    EXPECT_STREQ(home->getBssid(), "old");
    EXPECT_STREQ(network("work")->getBssid(), "a:b");
}

TEST_F(StatusScan, ChangesNoStatus) {
    EXPECT_TRUE(refresh("0\thome\tany\t[CURRENT]\n1\twork\tany\t[DISABLED]\n",
                        "a:b\t2412\t160\t[ESS]\thome work\n"));
    EXPECT_EQ(statusOf("home"), NETWORK_STATUS_CONNECTING);
    EXPECT_EQ(statusOf("work"), NETWORK_STATUS_DISABLED);
    EXPECT_EQ(current(), "home");
    expectNoLockHeld();
}

// The fields are set like any other change, so the next save writes them.
// STATUS-5
TEST_F(StatusScan, LeavesChangesToBeSaved) {
    scan(HOME_IN_RANGE);
    EXPECT_TRUE(network("home")->getBssidDirty());
    EXPECT_TRUE(network("home")->getChannelDirty());
    EXPECT_TRUE(network("home")->getNetworkModeDirty());
    EXPECT_FALSE(network("work")->getNetworkDirty());
    network("home")->cleanDirtyFields();
    scan(HOME_IN_RANGE);
    EXPECT_FALSE(network("home")->getNetworkDirty()) << "nothing was changed";
}

} // namespace
