// The output of commands with --json.

#include "CommandFixture.h"

#include <nlohmann/json.hpp>

using nlohmann::json;
using testing::ElementsAre;

namespace {

class Json : public test::CommandFixture {
protected:
    /// What a command prints.
    static json of(test::Arguments arguments) {
        arguments.emplace_back("--json");
        return json::parse(outputOf(test::quickPlatwifi(arguments)));
    }
};

TEST_F(Json, ListsTheAdapters) {
    host.on({"interface"}).prints("Selected\nAvailable interfaces:\nwlan0\nwlan1\n");
    EXPECT_EQ(of({"adapters"}), json({"wlan0", "wlan1"}));
}

TEST_F(Json, ShowsTheStatus) {
    on({"status"}).prints("ssid=caf\\xc3\\xa9\nid=0\nwpa_state=COMPLETED\n");
    serve({"caf\\xc3\\xa9", "home"});
    json status = of({"status"});
    EXPECT_EQ(status["link"]["ssid"], "café");
    status.erase("link");
    EXPECT_EQ(
        status,
        json({{"adapter", "wlan0"}, {"state", "COMPLETED"}, {"network", "café"}, {"networks", 2}}));
}

TEST_F(Json, HasNullIfThereIsNoNetwork) {
    serve({});
    EXPECT_EQ(of({"status"}), json({{"adapter", "wlan0"},
                                    {"state", "INACTIVE"},
                                    {"network", nullptr},
                                    {"networks", 0},
                                    {"link", nullptr}}));
}

TEST_F(Json, ListsTheNetworks) {
    on({"get_network", "0", "key_mgmt"}).prints("WPA-PSK");
    on({"get_network", "0", "priority"}).prints("-3");
    on({"get_network", "1", "key_mgmt"}).prints("NONE");
    on({"list_networks"})
        .prints("network id / ssid / bssid / flags\n"
                "0\thome\tany\t\n1\t\\xff\tany\t[DISABLED]\n");
    serve({"home", "\\xff"});
    const json home = {{"ssid", "home"},
                       {"status", "enabled"},
                       {"key_mgmt", "WPA-PSK"},
                       {"priority", -3},
                       {"bssid", "any"}};
    const json other = {{"ssid", "\\xff"},
                        {"status", "disabled"},
                        {"key_mgmt", "NONE"},
                        {"priority", 0},
                        {"bssid", "any"}};
    EXPECT_EQ(of({"networks"}), json({other, home}));
}

TEST_F(Json, OfNoNetworkIsAnEmptyList) {
    serve({});
    EXPECT_EQ(of({"networks"}), json::array());
}

TEST_F(Json, ShowsANetworkWithoutItsSecrets) {
    on({"get_network", "0", "psk"}).prints("*");
    on({"get_network", "0", "identity"}).prints("\"me\"");
    serve({"home"});
    const json shown = of({"show", "home"});
    EXPECT_EQ(shown["ssid"], "home");
    EXPECT_EQ(shown["psk"], true);
    EXPECT_EQ(shown["eapPassword"], false);
    EXPECT_EQ(shown["eapIdentity"], "me");
    EXPECT_EQ(shown["index"], 0);
    EXPECT_EQ(shown["ssidBroadcasted"], false);
    EXPECT_EQ(shown.size(), 36u);
}

TEST_F(Json, ListsTheScanStrongestFirst) {
    accept({"scan"});
    on({"scan_results"})
        .prints("bssid / frequency / signal level / flags / ssid\n"
                "02:00:00:00:01:00\t2412\t-71\t[WPA2-PSK-CCMP][ESS]\tfar\\xe2\\x80\\xa6\n"
                "02:00:00:00:02:00\t5180\t-30\t[ESS]\t\\x00\n");
    serve({});
    const json near = {{"ssid", "\\x00"},   {"bssid", "02:00:00:00:02:00"},
                       {"channel", 36},     {"band", "5 GHz"},
                       {"frequency", 5180}, {"signal", -30},
                       {"percent", 100},    {"security", "open"},
                       {"flags", "[ESS]"},  {"connected", false},
                       {"saved", false}};
    const json far = {{"ssid", "far…"},
                      {"bssid", "02:00:00:00:01:00"},
                      {"channel", 1},
                      {"band", "2.4 GHz"},
                      {"frequency", 2412},
                      {"signal", -71},
                      {"percent", 58},
                      {"security", "WPA2-PSK"},
                      {"flags", "[WPA2-PSK-CCMP][ESS]"},
                      {"connected", false},
                      {"saved", false}};
    EXPECT_EQ(of({"scan"}), json({near, far}));
}

TEST_F(Json, ShowsWhatWasDone) {
    serve({"home"});
    EXPECT_EQ(of({"set", "home", "priority=5"}), json({{"ssid", "home"}, {"done", "saved"}}));
    EXPECT_EQ(of({"disconnect", "home"}), json({{"ssid", "home"}, {"done", "disconnected"}}));
    EXPECT_EQ(of({"roam"}), json({{"done", "roaming"}}));
}

TEST_F(Json, ShowsWhatWasRemoved) {
    accept({"remove_network", "0"});
    serve({"home"});
    EXPECT_EQ(of({"remove", "home"}), json({{"ssid", "home"}, {"done", "removed"}}));
}

TEST_F(Json, ShowsWhatWasAdded) {
    on({"add_network"}).prints("0\n");
    accept({"set_network", "0", "ssid", "\"cafe\""});
    accept({"enable_network", "0"});
    serve({});
    EXPECT_EQ(of({"add", "cafe", "key_mgmt=NONE"}), json({{"ssid", "cafe"}, {"done", "added"}}));
}

TEST_F(Json, IsNotPrintedAfterAFailure) {
    serve({});
    expectFailure(test::platwifi({"show", "home", "--json"}), "there is no network home");
}

} // namespace
