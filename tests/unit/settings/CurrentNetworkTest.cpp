// Which network an adapter is on, as the status report tells it.

#include "StatusFixture.h"

#include "MissingWifiUtil.h"
#include "RecordedLocks.h"

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

class CurrentNetwork : public test::StatusFixture {
protected:
    CurrentNetwork() { loadBoth(); }

    /// The SSID of what is returned, which is also what is kept; "none" for null.
    std::string ask(const char* adapter = "wlan0") const {
        const WifiNetwork* const found = settings().getCurrentNetwork(adapter);
        EXPECT_EQ(found, test::currentNetworkOf(settings()));
        return found ? found->getSsid() : "none";
    }

    std::string askWith(const std::string& report) {
        replies("", report);
        return ask();
    }
};

// LOAD-3
TEST_F(CurrentNetwork, IsAskedOfTheAdapterThatIsNamed) {
    standIn.on({"-iwlan0", "status"}).prints("ssid=home\n");
    standIn.on({"-iwlan1", "status"}).prints("ssid=work\n");
    EXPECT_EQ(ask("wlan1"), "work");
    EXPECT_EQ(ask("wlan0"), "home");
    EXPECT_THAT(commands(), ElementsAre("-iwlan1 status", "-iwlan0 status"));
}

TEST_F(CurrentNetwork, IsNullAndStaysForNoAdapter) {
    setCurrent("home");
    EXPECT_EQ(settings().getCurrentNetwork(nullptr), nullptr);
    EXPECT_EQ(current(), "home");
    EXPECT_THAT(commands(), IsEmpty());
}

TEST_F(CurrentNetwork, IsThatOfTheFirstSsidAtTheBeginningOfALine) {
    struct Row {
        const char* report;
        const char* ssid;
    };
    const Row rows[] = {
        {"ssid=home\n", "home"},
        {"bssid=home\nssid=work\n", "work"},
        {"ssid=work\nbssid=home\n", "work"},
        {"ssid=work\nssid=home\n", "work"},
        {" ssid=home\nx ssid=home\nSSID=home\nssid =home\nssid=work\n", "work"},
        {"freq=2412\nwpa_state=DISCONNECTED\nssid=work\n", "work"},
        {"ssid=elsewhere\nssid=home\n", "none"},
        {"ssid=\n", "none"},
        {"ssid=Home\n", "none"},
        {"ssid=home \n", "none"},
        {"ssid=ssid=home\n", "none"},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.report);
        setCurrent(nullptr);
        EXPECT_EQ(askWith(row.report), row.ssid);
    }
}

TEST_F(CurrentNetwork, HasTheTextBehindTheFirstEqualsSign) {
    record("work")->setSsid("a=b");
    EXPECT_EQ(askWith("ssid=a=b\n"), "a=b");
}

// STATUS-10
TEST_F(CurrentNetwork, StaysWithoutAnSsid) {
    setStatus("home", NETWORK_STATUS_CONNECTED);
    for (const char* const report :
         {"", "bssid=work\n", "wpa_state=DISCONNECTED\n", "id=1\n ssid=work\n", "FAIL\n"}) {
        SCOPED_TRACE(report);
        setCurrent("home");
        EXPECT_EQ(askWith(report), "home");
        EXPECT_EQ(statusOf("home"), NETWORK_STATUS_CONNECTED);
        setCurrent(nullptr);
        EXPECT_EQ(askWith(report), "none");
    }
}

TEST_F(CurrentNetwork, IsLookedForInTheFirst16Lines) {
    std::string report;
    for (int i = 0; i < 15; ++i)
        report += "line=" + std::to_string(i) + "\n";
    EXPECT_EQ(askWith(report + "one more\nssid=home\n"), "none");
    EXPECT_EQ(askWith(report + "ssid=home\n"), "home");
}

// Only the network that is left gets another status.
// STATUS-11
TEST_F(CurrentNetwork, LeavesTheOneBeforeEnabledUnlessItIsDisabled) {
    struct Row {
        const char* report;
        unsigned int before;
        const char* current;
        int after;
    };
    const Row rows[] = {
        {"ssid=work\n", NETWORK_STATUS_CONNECTED, "work", NETWORK_STATUS_ENABLED},
        {"ssid=work\n", NETWORK_STATUS_CONNECTING, "work", NETWORK_STATUS_ENABLED},
        {"ssid=work\n", NETWORK_STATUS_UNKNOWN, "work", NETWORK_STATUS_ENABLED},
        {"ssid=work\n", NETWORK_STATUS_DISABLED, "work", NETWORK_STATUS_DISABLED},
        {"ssid=elsewhere\n", NETWORK_STATUS_CONNECTED, "none", NETWORK_STATUS_ENABLED},
        {"ssid=elsewhere\n", NETWORK_STATUS_DISABLED, "none", NETWORK_STATUS_DISABLED},
        {"ssid=home\n", NETWORK_STATUS_CONNECTED, "home", NETWORK_STATUS_CONNECTED},
        {"ssid=home\n", NETWORK_STATUS_CONNECTING, "home", NETWORK_STATUS_CONNECTING},
    };
    setStatus("work", NETWORK_STATUS_DISABLED);
    for (const Row& row : rows) {
        SCOPED_TRACE(row.report);
        setStatus("home", row.before);
        setCurrent("home");
        EXPECT_EQ(askWith(row.report), row.current);
        EXPECT_EQ(statusOf("home"), row.after);
        EXPECT_EQ(statusOf("work"), NETWORK_STATUS_DISABLED);
    }
}

TEST_F(CurrentNetwork, StaysWhenAnotherNetworkHasItsName) {
    setCurrent("home");
    const WifiNetwork* const home = record("home");
    record("work")->setSsid("home");
    EXPECT_EQ(askWith("ssid=home\n"), "home");
    EXPECT_EQ(test::currentNetworkOf(settings()), home);
}

// STATUS-10
TEST_F(CurrentNetwork, IsNoneWhenTheSupplicantDoesNotAnswer) {
    standIn.on({"*"}).prints("ssid=home\n").exits(255);
    EXPECT_EQ(ask(), "none") << "there was none before";
    setStatus("home", NETWORK_STATUS_CONNECTED);
    setCurrent("home");
    EXPECT_EQ(ask(), "none");
    EXPECT_EQ(statusOf("home"), NETWORK_STATUS_ENABLED);
    setStatus("home", NETWORK_STATUS_DISABLED);
    setCurrent("home");
    EXPECT_EQ(ask(), "none");
    EXPECT_EQ(statusOf("home"), NETWORK_STATUS_DISABLED);
}

TEST_F(CurrentNetwork, IsNoneWhenNoCommandCanNameTheAdapter) {
    setStatus("home", NETWORK_STATUS_CONNECTED);
    setCurrent("home");
    EXPECT_EQ(ask("fourteen-chars"), "none");
    EXPECT_EQ(statusOf("home"), NETWORK_STATUS_ENABLED);
    EXPECT_THAT(commands(), IsEmpty());
}

TEST_F(CurrentNetwork, IsNoneWithoutWifiUtil) {
    const test::MissingWifiUtil missing;
    setStatus("home", NETWORK_STATUS_CONNECTED);
    setCurrent("home");
    EXPECT_EQ(ask(), "none");
    EXPECT_EQ(statusOf("home"), NETWORK_STATUS_ENABLED);
    setStatus("home", NETWORK_STATUS_DISABLED);
    setCurrent("home");
    EXPECT_EQ(ask(), "none");
    EXPECT_EQ(statusOf("home"), NETWORK_STATUS_DISABLED);
}

TEST_F(CurrentNetwork, LeavesTheSupplicantsStateAlone) {
    setState(WPA_STATE_SCANNING);
    EXPECT_EQ(askWith("ssid=home\nwpa_state=COMPLETED\n"), "home");
    EXPECT_EQ(test::supplicantStateOf(settings()), WPA_STATE_SCANNING);
    EXPECT_EQ(statusOf("home"), NETWORK_STATUS_ENABLED);
}

TEST_F(CurrentNetwork, IsNoneOfAnInstanceThatCouldNotBeLoaded) {
    standIn.on({"*"}).exits(255);
    load();
    EXPECT_EQ(askWith("ssid=home\n"), "none");
    EXPECT_THAT(commands(), ElementsAre("-iwlan0 status"));
}

// Its caller holds the others, for as long as it uses the network.
TEST_F(CurrentNetwork, IsSetUnderTheLockOfTheStateAlone) {
    const test::SettingsMutexes locks(settings());
    const test::LockEvents once{{true, locks.all[2]}, {false, locks.all[2]}};
    EXPECT_EQ(locks.among(test::eventsOf([&] { askWith("ssid=home\n"); })), once);
    EXPECT_EQ(locks.among(test::eventsOf([&] { askWith("ssid=home\n"); })), once);
    EXPECT_THAT(locks.among(test::eventsOf([&] { askWith(""); })), IsEmpty());
    standIn.reset();
    standIn.on({"*"}).exits(255);
    EXPECT_EQ(locks.among(test::eventsOf([&] { ask(); })), once);
    EXPECT_THAT(test::eventsOf([&] { settings().getCurrentNetwork(nullptr); }), IsEmpty());
}

} // namespace
