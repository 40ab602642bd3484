// What status, show and networks print of the connection.

#include "CommandFixture.h"

#include <nlohmann/json.hpp>

using nlohmann::json;
using test::platwifi;
using testing::EndsWith;
using testing::HasSubstr;
using testing::Not;

namespace {

const std::string CONNECTED = "bssid=02:00:00:00:01:00\nfreq=5180\nssid=home\nid=0\n"
                              "pairwise_cipher=CCMP\ngroup_cipher=CCMP\nkey_mgmt=SAE\npmf=2\n"
                              "wpa_state=COMPLETED\nip_address=192.0.2.7\n";
const std::string SIGNAL_OF_HOME = "RSSI=-61\nLINKSPEED=866\nNOISE=-92\nFREQUENCY=5180\n";

// An older connection, whose details the supplicant still reports.
const std::string STALE = "bssid=02:00:00:00:01:00\nfreq=5180\nkey_mgmt=SAE\n";

class TheConnection : public test::CommandFixture {
protected:
    TheConnection() { setenv("LC_ALL", "C", 1); }
    ~TheConnection() override { unsetenv("LC_ALL"); }

    void connect() {
        on({"status"}).prints(CONNECTED);
        on({"signal_poll"}).prints(SIGNAL_OF_HOME);
        serve({"work", "home"});
    }

    /// Serves these networks in a state without a connection.
    void wait(const std::string& state) {
        on({"status"}).prints(STALE + "wpa_state=" + state + "\n");
        on({"signal_poll"}).prints(SIGNAL_OF_HOME);
        serve({"work", "home"});
    }

    static std::string of(const test::Arguments& arguments) {
        return outputOf(platwifi(arguments));
    }

    static json jsonOf(test::Arguments arguments) {
        arguments.emplace_back("--json");
        return json::parse(of(arguments));
    }
};

TEST_F(TheConnection, IsShownByTheStatus) {
    connect();
    EXPECT_EQ(of({"status"}), "Adapter:         wlan0\n"
                              "State:           COMPLETED\n"
                              "Network:         home\n"
                              "Networks:        2 configured\n"
                              "Access point:    02:00:00:00:01:00\n"
                              "Channel:         36 (5 GHz, 5180 MHz)\n"
                              "Signal:          #### 78% (-61 dBm)\n"
                              "Link speed:      866 Mbit/s\n"
                              "Key management:  SAE\n"
                              "Ciphers:         CCMP\n"
                              "PMF:             required\n"
                              "IPv4 address:    192.0.2.7\n");
}

// Each command is a process, and a load of the settings takes 28 for each network.
TEST_F(TheConnection, CostsFourCommands) {
    connect();
    of({"status"});
    EXPECT_EQ(commands(), (std::vector<std::string>{"interface", "-iwlan0 list_networks",
                                                    "-iwlan0 status", "-iwlan0 signal_poll"}));
}

TEST_F(TheConnection, CostsThreeCommandsWhileThereIsNone) {
    wait("SCANNING");
    of({"status"});
    EXPECT_EQ(commands(),
              (std::vector<std::string>{"interface", "-iwlan0 list_networks", "-iwlan0 status"}));
}

// A list of more than 4096 bytes comes in parts.
TEST_F(TheConnection, IsShownBesideNetworksThatDoNotFitIntoOneReply) {
    const std::string name(50, 'x');
    std::string list;
    for (int id = 0; id < 70; ++id)
        list += std::to_string(id) + "\t" + name + std::to_string(id) + "\tany\t\n";
    on({"list_networks"}).prints(test::LIST_HEADER + list);
    on({"list_networks", "LAST_ID=69"}).prints(test::LIST_HEADER + "70\tlast\tany\t\n");
    wait("SCANNING");
    EXPECT_THAT(of({"status"}), HasSubstr("Networks:  71 configured\n"));
}

TEST_F(TheConnection, IsShownBesideTheNetworksThatALoadFinds) {
    on({"list_networks"})
        .prints(test::LIST_HEADER + "0\thome\tany\t\n1\thome\tany\t\n2\t\tany\t\n"
                                    "3\tany\tany\t\nx\tno id\tany\t\n256\tno id\tany\t\n");
    wait("SCANNING");
    EXPECT_THAT(of({"status"}), HasSubstr("Networks:  3 configured\n"));
    EXPECT_EQ(jsonOf({"networks"}).size(), 3U);
    setenv("PLATWIFI_PROFILE", "device", 1);
    EXPECT_THAT(of({"status"}), HasSubstr("Networks:  3 configured\n"));
    EXPECT_EQ(jsonOf({"networks"}).size(), 3U);
    unsetenv("PLATWIFI_PROFILE");
}

TEST_F(TheConnection, IsShownBesideAsManyNetworksAsTheProfileLoads) {
    std::vector<std::string> ssids;
    for (int i = 0; i < 40; ++i)
        ssids.push_back("n" + std::to_string(i));
    on({"status"}).prints("wpa_state=SCANNING\n");
    serve(ssids);
    EXPECT_THAT(of({"status"}), HasSubstr("Networks:  40 configured\n"));
    setenv("PLATWIFI_PROFILE", "device", 1);
    EXPECT_THAT(of({"status"}), HasSubstr("Networks:  32 configured\n"));
    unsetenv("PLATWIFI_PROFILE");
}

TEST_F(TheConnection, IsNotShownForAnotherInterfaceThanThatOfTheNetworks) {
    host.on({"interface"}).prints("Selected\nAvailable interfaces:\nwlan0\nwlan1\n");
    serve({"home"});
    expectFailure(platwifi({"status", "-i", "wlan1"}), "the networks are those of wlan0");
}

TEST_F(TheConnection, CannotBeAskedForIfThereIsNoStatus) {
    on({"status"}).prints("FAIL\n");
    serve({"home"});
    expectFailure(platwifi({"status"}), "wlan0");
}

TEST_F(TheConnection, CannotBeAskedForIfTheListCannotBeRead) {
    on({"list_networks"}).prints(test::LIST_HEADER + "x\tno id\tany\t\n");
    serve({});
    expectFailure(platwifi({"status"}), "wpa_supplicant");
}

TEST_F(TheConnection, IsARecordInTheStatusForPrograms) {
    connect();
    const json link = {{"ssid", "home"},
                       {"bssid", "02:00:00:00:01:00"},
                       {"frequency", 5180},
                       {"channel", 36},
                       {"band", "5 GHz"},
                       {"signal", -61},
                       {"percent", 78},
                       {"speed", 866},
                       {"key_mgmt", "SAE"},
                       {"pairwise", "CCMP"},
                       {"group", "CCMP"},
                       {"pmf", "required"},
                       {"ipv4", "192.0.2.7"},
                       {"ipv6", nullptr},
                       {"connectedSeconds", nullptr}};
    EXPECT_EQ(jsonOf({"status"}), json({{"adapter", "wlan0"},
                                        {"state", "COMPLETED"},
                                        {"network", "home"},
                                        {"networks", 2},
                                        {"link", link}}));
}

TEST_F(TheConnection, IsNotShownWhileThereIsNone) {
    wait("SCANNING");
    EXPECT_EQ(of({"status"}), "Adapter:   wlan0\n"
                              "State:     SCANNING\n"
                              "Network:   none\n"
                              "Networks:  2 configured\n");
    EXPECT_EQ(jsonOf({"status"})["link"], nullptr);
    EXPECT_EQ(callsOf({"signal_poll"}), 0u);
}

TEST_F(TheConnection, IsNotShownAfterItsEnd) {
    wait("DISCONNECTED");
    EXPECT_EQ(of({"status"}), "Adapter:   wlan0\n"
                              "State:     DISCONNECTED\n"
                              "Network:   none\n"
                              "Networks:  2 configured\n");
}

TEST_F(TheConnection, HasNoSignalIfTheDriverReportsNone) {
    on({"status"}).prints(CONNECTED);
    on({"signal_poll"}).prints("RSSI=0\nLINKSPEED=0\nNOISE=9999\nFREQUENCY=5180\n");
    serve({"home"});
    EXPECT_THAT(of({"status"}), AllOf(Not(HasSubstr("Signal")), Not(HasSubstr("Link speed"))));
    EXPECT_THAT(of({"show", "home"}), Not(HasSubstr("strength")));
    EXPECT_EQ(jsonOf({"show", "home"})["strength"], nullptr);
}

TEST_F(TheConnection, CannotBeAskedForIfNoInterfaceAnswers) {
    host.on({"interface"}).prints("Selected\nAvailable interfaces:\n");
    serve({});
    expectFailure(platwifi({"status"}), "wpa_supplicant is not running");
}

TEST_F(TheConnection, CannotBeAskedForIfTheSupplicantIsSilent) {
    on({"list_networks"}).exits(255);
    serve({});
    expectFailure(platwifi({"status"}), "wlan0");
}

TEST_F(TheConnection, IsShownWithItsNetwork) {
    connect();
    const std::string shown = of({"show", "home"});
    EXPECT_THAT(shown, HasSubstr("strength         78\n"));
    EXPECT_THAT(shown, HasSubstr("channel          36\n"));
    EXPECT_THAT(shown, HasSubstr("\n\n"
                                 "Link            Value\n"
                                 "Access point    02:00:00:00:01:00\n"));
    EXPECT_THAT(shown, EndsWith("PMF             required\n"
                                "IPv4 address    192.0.2.7\n"));
}

TEST_F(TheConnection, IsARecordOfItsNetworkForPrograms) {
    connect();
    const json shown = jsonOf({"show", "home"});
    EXPECT_EQ(shown["strength"], 78);
    EXPECT_EQ(shown["channel"], 36);
    EXPECT_EQ(shown["link"]["bssid"], "02:00:00:00:01:00");
    EXPECT_EQ(shown["bssid"], "any");
}

TEST_F(TheConnection, IsNotShownWithAnotherNetwork) {
    connect();
    EXPECT_THAT(of({"show", "work"}), Not(HasSubstr("Link")));
    EXPECT_EQ(jsonOf({"show", "work"})["link"], nullptr);
}

TEST_F(TheConnection, IsThatOfTheBytesOfTheSsid) {
    on({"status"}).prints("ssid=caf\\xc3\\xa9\nfreq=2437\nwpa_state=COMPLETED\n");
    serve({"caf\\xc3\\xa9"});
    EXPECT_EQ(jsonOf({"show", "café"})["channel"], 6);
}

TEST_F(TheConnection, IsMarkedInTheList) {
    on({"list_networks"}).prints(test::LIST_HEADER + "0\twork\tany\t\n1\thome\tany\t[CURRENT]\n");
    connect();
    const json networks = jsonOf({"networks"});
    EXPECT_EQ(networks[0]["ssid"], "home");
    EXPECT_EQ(networks[0]["status"], "connected");
    EXPECT_EQ(networks[1]["status"], "enabled");
}

/// A network without a connection.
class ANetwork : public TheConnection {};

TEST_F(ANetwork, InRangeHasTheSignalAndTheChannelOfTheScan) {
    on({"scan_results"})
        .prints(test::SCAN_HEADER + "02:00:00:00:01:00\t5180\t-75\t[ESS]\thome\n"
                                    "02:00:00:00:02:00\t2412\t-105\t[ESS]\twork\n");
    wait("INACTIVE");
    const std::string shown = of({"show", "home"});
    EXPECT_THAT(shown, HasSubstr("strength         50\n"));
    EXPECT_THAT(shown, HasSubstr("channel          36\n"));
    const json weak = jsonOf({"show", "work"});
    EXPECT_EQ(weak["strength"], 0) << "it is weak, and in range";
    EXPECT_EQ(weak["channel"], 1);
}

TEST_F(ANetwork, OutOfRangeHasNeitherSignalNorChannel) {
    wait("INACTIVE");
    const std::string shown = of({"show", "home"});
    EXPECT_THAT(shown, AllOf(Not(HasSubstr("strength")), Not(HasSubstr("channel"))));
    const json members = jsonOf({"show", "home"});
    EXPECT_EQ(members["strength"], nullptr);
    EXPECT_EQ(members["channel"], nullptr);
}

} // namespace
