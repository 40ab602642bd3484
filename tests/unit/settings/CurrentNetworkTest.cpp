// The current network of an adapter, by the supplicant's status.

#include "LoadedSettings.h"
#include "RecordedLocks.h"

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

class CurrentNetwork : public test::SettingsTest {
protected:
    CurrentNetwork() { load(test::LoadedHost::linesOf({"home", "work"})); }

    /// The SSID of the result, which is also what is kept; "none" for null.
    static std::string ask(const char* adapter = "wlan0") {
        const WifiNetwork* const found = settings().getCurrentNetwork(adapter);
        EXPECT_EQ(found, currentNetwork());
        return found ? found->getSsid() : "none";
    }

    void answerStatus(const std::string& status) {
        standIn.reset();
        standIn.on({"-iwlan0", "status"}).prints(status);
    }

    std::string askWith(const std::string& status) {
        answerStatus(status);
        return ask();
    }

    static void atHome(unsigned int status) {
        setCurrent("home");
        setStatus("home", status);
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
        const char* status;
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
        SCOPED_TRACE(row.status);
        setNoCurrent();
        EXPECT_EQ(askWith(row.status), row.ssid);
    }
}

TEST_F(CurrentNetwork, HasTheTextBehindTheFirstEqualsSign) {
    network("work")->setSsid("a=b");
    EXPECT_EQ(askWith("ssid=a=b\n"), "a=b");
}

// STATUS-10
TEST_F(CurrentNetwork, StaysWithoutAnSsid) {
    for (const char* const status :
         {"", "bssid=work\n", "wpa_state=DISCONNECTED\n", "id=1\n ssid=work\n", "FAIL\n"}) {
        SCOPED_TRACE(status);
        atHome(NETWORK_STATUS_CONNECTED);
        EXPECT_EQ(askWith(status), "home");
        EXPECT_EQ(statusOf("home"), NETWORK_STATUS_CONNECTED);
        setNoCurrent();
        EXPECT_EQ(askWith(status), "none");
    }
}

TEST_F(CurrentNetwork, IsLookedForInTheFirst16Lines) {
    std::string status;
    for (int i = 0; i < 15; ++i)
        status += "line=" + std::to_string(i) + "\n";
    EXPECT_EQ(askWith(status + "one more\nssid=home\n"), "none");
    EXPECT_EQ(askWith(status + "ssid=home\n"), "home");
}

// Only the previous network gets another status.
// STATUS-11
TEST_F(CurrentNetwork, EnablesThePreviousOneUnlessItIsDisabled) {
    struct Row {
        const char* status;
        unsigned int before;
        const char* current;
        unsigned int after;
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
        SCOPED_TRACE(row.status);
        atHome(row.before);
        EXPECT_EQ(askWith(row.status), row.current);
        EXPECT_EQ(statusOf("home"), row.after);
        EXPECT_EQ(statusOf("work"), NETWORK_STATUS_DISABLED);
    }
}

TEST_F(CurrentNetwork, StaysWhenAnotherNetworkHasItsSsid) {
    setCurrent("home");
    const WifiNetwork* const home = network("home");
    network("work")->setSsid("home");
    EXPECT_EQ(askWith("ssid=home\n"), "home");
    EXPECT_EQ(currentNetwork(), home);
}

// STATUS-10
TEST_F(CurrentNetwork, IsNoneWithoutAnAnswer) {
    standIn.on({"*"}).prints("ssid=home\n").exits(255);
    EXPECT_EQ(ask(), "none") << "there was none before";
    atHome(NETWORK_STATUS_CONNECTED);
    EXPECT_EQ(ask(), "none");
    EXPECT_EQ(statusOf("home"), NETWORK_STATUS_ENABLED);
    atHome(NETWORK_STATUS_DISABLED);
    EXPECT_EQ(ask(), "none");
    EXPECT_EQ(statusOf("home"), NETWORK_STATUS_DISABLED);
}

TEST_F(CurrentNetwork, IsNoneWhenNoCommandCanNameTheAdapter) {
    atHome(NETWORK_STATUS_CONNECTED);
    EXPECT_EQ(ask("fourteen-chars"), "none");
    EXPECT_EQ(statusOf("home"), NETWORK_STATUS_ENABLED);
    EXPECT_THAT(commands(), IsEmpty());
}

TEST_F(CurrentNetwork, LeavesTheSupplicantsStateAlone) {
    setState("SCANNING");
    EXPECT_EQ(askWith("ssid=home\nwpa_state=COMPLETED\n"), "home");
    EXPECT_EQ(state(), WPA_STATE_SCANNING);
    EXPECT_EQ(statusOf("home"), NETWORK_STATUS_ENABLED);
}

TEST_F(CurrentNetwork, IsNoneAfterALoadThatFailed) {
    fail();
    EXPECT_EQ(askWith("ssid=home\n"), "none");
    EXPECT_THAT(commands(), ElementsAre("-iwlan0 status"));
}

// The caller holds the other locks, as long as it uses the network.
TEST_F(CurrentNetwork, IsSetUnderTheLockOfTheStateAlone) {
    const test::SettingsMutexes locks(settings());
    const test::LockEvents once{{true, locks.all[1]}, {false, locks.all[1]}};
    const auto eventsOfAsking = [&locks] {
        return locks.among(test::eventsOf([] { settings().getCurrentNetwork("wlan0"); }));
    };
    answerStatus("ssid=home\n");
    EXPECT_EQ(eventsOfAsking(), once);
    EXPECT_EQ(eventsOfAsking(), once);
    answerStatus("");
    EXPECT_THAT(eventsOfAsking(), IsEmpty());
    standIn.reset(); // no answer
    EXPECT_EQ(eventsOfAsking(), once);
    EXPECT_THAT(test::eventsOf([] { settings().getCurrentNetwork(nullptr); }), IsEmpty());
}

} // namespace
