// Loading and using networks of real access points. Runs in the virtual machine of the lab, whose supplicant
// reads the configuration file that is written here.

#include "model/WifiNetwork.h"
#include "settings/WifiHostSettings.h"
#include "supplicant/Records.h"
#include "supplicant/WatchedClient.h"
#include "supplicant/WifiUtil.h"

#include <chrono>
#include <cstdlib>
#include <fstream>
#include <functional>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <thread>

using test::HostCommand;
using test::Lines;
using test::loadedRecords;
using testing::AllOf;
using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::IsSupersetOf;
using testing::Not;

namespace {

constexpr const char* WLAN = "wlan0";

constexpr std::chrono::seconds MAX_WAIT{300};           // in case that the event never comes
constexpr std::chrono::milliseconds POLL_INTERVAL{200}; // twice the time that a query takes here

std::string variable(const char* name) {
    const char* const value = std::getenv(name);
    return value ? value : "";
}

std::string quoted(const std::string& text) {
    return '"' + text + '"';
}

const std::string CONFIGURATION = variable("LAB_SUPPLICANT_CONF");

// The lines before the networks, which the lab has written.
const Lines& globalLines() {
    static const Lines lines = test::linesOfFile(CONFIGURATION);
    return lines;
}

Lines ask(const std::string& command) {
    return HostCommand("wpa_cli -iwlan0 " + command).lines;
}

void configure(const std::string& networks) {
    const Lines global = globalLines();
    std::ofstream file(CONFIGURATION);
    for (const std::string& line : global)
        file << line << '\n';
    file << networks;
    file.close();
    EXPECT_THAT(ask("reconfigure"), ElementsAre("OK"));
}

testing::AssertionResult statusGets(const Lines& wanted) {
    const auto end = std::chrono::steady_clock::now() + MAX_WAIT;
    while (!testing::Matches(IsSupersetOf(wanted))(ask("status"))) {
        if (std::chrono::steady_clock::now() > end)
            return testing::AssertionFailure() << testing::PrintToString(ask("status"));
        std::this_thread::sleep_for(POLL_INTERVAL);
    }
    return testing::AssertionSuccess();
}

// A configured network, disabled, so that the supplicant connects only on request.
std::string network(const std::string& ssid, const std::string& fields) {
    return "network={\nssid=" + quoted(ssid) + "\ndisabled=1\n" + fields + "}\n";
}

std::string psk() {
    return "psk=" + quoted(variable("LAB_PASSPHRASE")) + "\n";
}

std::string eap(const std::string& fields) {
    return "key_mgmt=WPA-EAP\nidentity=" + quoted(variable("LAB_IDENTITY")) +
           "\nca_cert=" + quoted(variable("LAB_CERTIFICATES") + "/ca.pem") + "\n" + fields;
}

std::string eapWithPassword(const std::string& fields) {
    return eap("password=" + quoted(variable("LAB_PASSWORD")) + "\n" + fields);
}

std::string tls() {
    const std::string folder = variable("LAB_CERTIFICATES");
    return eap("eap=TLS\nclient_cert=" + quoted(folder + "/client.pem") +
               "\nprivate_key=" + quoted(folder + "/client-encrypted.key") +
               "\nprivate_key_passwd=" + quoted(variable("LAB_KEY_PASSWORD")) + "\n");
}

// One network for each access point.
std::string networksOfEveryKind() {
    return network("lab-open", "key_mgmt=NONE\n") +
           network("lab-psk", "key_mgmt=WPA-PSK\nproto=RSN\npairwise=CCMP\npriority=3\n" + psk()) +
           network("lab-hidden", "scan_ssid=1\nkey_mgmt=WPA-PSK\n" + psk()) +
           network("lab-wpa1-tkip", "proto=WPA\npairwise=TKIP\ngroup=TKIP\n" + psk()) +
           network("lab-wep", "key_mgmt=NONE\nauth_alg=SHARED\nwep_tx_keyidx=0\nwep_key0=" +
                                  variable("LAB_WEP_KEY") + "\n") +
           network("lab-eap", eapWithPassword("eap=PEAP\nanonymous_identity=\"anybody\"\n"
                                              "phase1=\"peapver=0\"\n"
                                              "phase2=\"auth=MSCHAPV2\"\n"));
}

// The settings stay loaded from test to test, because unloading them takes seconds.
class Settings : public testing::Environment {
    void TearDown() override {
        WifiHostSettings::unload();
        WifiUtil::unload();
    }
};

const testing::Environment* const REGISTERED = testing::AddGlobalTestEnvironment(new Settings);

WifiHostSettings& settings() {
    return *WifiHostSettings::getInstance(nullptr);
}

void load(const std::string& networks) {
    WifiHostSettings& loaded = settings(); // before there are networks to load
    configure(networks);
    loaded.refreshAllSettings();
}

Lines loadedSsids() {
    return test::ssidsOf(loadedRecords(settings()));
}

void expectAllAsConfigured() {
    EXPECT_THAT(test::differences(loadedRecords(settings()), test::expectedRecords()), IsEmpty());
}

void connectTo(const std::string& ssid) {
    EXPECT_TRUE(settings().connectNetwork(WLAN, ssid.c_str()));
    EXPECT_TRUE(statusGets({"ssid=" + ssid, "wpa_state=COMPLETED"})) << ssid;
}

void disconnectFrom(const std::string& ssid) {
    EXPECT_TRUE(settings().disconnectNetwork(WLAN, ssid.c_str()));
    EXPECT_TRUE(statusGets({"wpa_state=DISCONNECTED"})) << ssid;
}

TEST(ConfiguredNetworks, AreLoadedAndConnect) {
    load(networksOfEveryKind());
    EXPECT_THAT(loadedSsids(), ElementsAre("lab-eap", "lab-wep", "lab-wpa1-tkip", "lab-hidden",
                                           "lab-psk", "lab-open"));
    expectAllAsConfigured();
    for (const std::string& ssid : loadedSsids()) {
        connectTo(ssid);
        disconnectFrom(ssid);
    }
}

// One access point serves all methods, so there is one network at a time.
struct Method {
    const char* name;
    std::function<std::string()> fields;
};

const Method METHODS[] = {
    {"TtlsPap", [] { return eapWithPassword("eap=TTLS\nphase2=\"auth=PAP\"\n"); }},
    {"TlsWithAnEncryptedKey", tls},
};

class EnterpriseNetwork : public testing::TestWithParam<Method> {};

TEST_P(EnterpriseNetwork, ConnectsAndIsLoadedAsConnected) {
    load(network("lab-eap", GetParam().fields()));
    connectTo("lab-eap");
    settings().refreshAllSettings();
    expectAllAsConfigured();
    EXPECT_EQ(loadedRecords(settings()).at(0).at("status"), "3") << "connected";
    disconnectFrom("lab-eap");
}

INSTANTIATE_TEST_SUITE_P(Lab, EnterpriseNetwork, testing::ValuesIn(METHODS),
                         [](const auto& method) { return method.param.name; });

struct Security {
    const char* name;
    const char* ssid;
    void (*set)(WifiNetwork&);
    Lines fields; // in the file after a save
};

const Security SECURITIES[] = {
    {"Open",
     "lab-open",
     [](WifiNetwork& network) { network.setKeyManagement(KEY_MGMT_NONE); },
     {"\tkey_mgmt=NONE"}},
    {"Wpa2Psk",
     "lab-psk",
     [](WifiNetwork& network) {
         network.setKeyManagement(KEY_MGMT_WPA_PSK);
         network.setProtocol(PROTOCOL_RSN);
         network.setPsk(variable("LAB_PASSPHRASE").c_str());
     },
     {"\tkey_mgmt=WPA-PSK", "\tproto=RSN", "\tpsk=" + quoted(variable("LAB_PASSPHRASE"))}},
};

class NewNetwork : public testing::TestWithParam<Security> {
protected:
    const std::string ssid = GetParam().ssid;
    const std::string ssidLine = "\tssid=" + quoted(ssid);

    void add() const {
        const platwifi::SettingsLock lock(settings());
        EXPECT_TRUE(settings().addNetwork(WLAN, ssid.c_str()));
        GetParam().set(*settings().getNetwork(WLAN, ssid.c_str()));
    }

    static Lines savedFile() {
        EXPECT_EQ(settings().saveNetworkSettings(), 1);
        return test::linesOfFile(CONFIGURATION);
    }
};

// Another network is removed at the same time, so that the new one gets another id at the save.
TEST_P(NewNetwork, IsSavedConnectsAndIsRemoved) {
    load(network("old", "key_mgmt=NONE\n"));
    EXPECT_TRUE(settings().removeNetwork(WLAN, "old"));
    add();
    EXPECT_THAT(savedFile(), AllOf(Contains(ssidLine), IsSupersetOf(GetParam().fields),
                                   Not(Contains("\tssid=\"old\""))));
    connectTo(ssid);
    disconnectFrom(ssid);
    {
        const test::WatchedClient client;
        connectTo(ssid);
        EXPECT_THAT(client.commands(),
                    ElementsAre("-iwlan0 reassociate", testing::StartsWith("-iwlan0 select ")));
    }
    disconnectFrom(ssid);
    EXPECT_TRUE(settings().removeNetwork(WLAN, ssid.c_str()));
    EXPECT_THAT(savedFile(), Not(Contains(ssidLine)));
}

INSTANTIATE_TEST_SUITE_P(Lab, NewNetwork, testing::ValuesIn(SECURITIES),
                         [](const auto& security) { return security.param.name; });

} // namespace
