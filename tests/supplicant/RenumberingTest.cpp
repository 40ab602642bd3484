// After the supplicant has assigned new network ids, an operation still reaches its own network.

#include "SupplicantTest.h"
#include "model/WifiNetwork.h"
#include "settings/SettingsLock.h"
#include "settings/WifiHostSettings.h"

#include <sstream>
#include <string>

using test::Lines;
using test::openNetworks;
using test::WLAN;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::StartsWith;

namespace {

class Renumbering : public test::SupplicantTest {
protected:
    ~Renumbering() override { WifiHostSettings::unload(); }

    WifiHostSettings& settings() { return *WifiHostSettings::getInstance(nullptr); }

    // An open network: the supplicant does not save one that lacks the key that it needs.
    void add(const char* ssid) {
        ASSERT_TRUE(settings().addNetwork(WLAN, ssid));
        const platwifi::SettingsLock lock(settings());
        settings().getNetwork(WLAN, ssid)->setKeyManagement(KEY_MGMT_NONE);
    }
};

TEST_F(Renumbering, DoesNotLeadToAnotherNetwork) {
    supplicant.start(openNetworks({"home", "work", "cafe"}));
    EXPECT_TRUE(settings().removeNetwork(WLAN, "home"));
    EXPECT_EQ(settings().saveNetworkSettings(), 1);
    EXPECT_THAT(supplicant.networks(),
                ElementsAre(StartsWith("0\twork\t"), StartsWith("1\tcafe\t")));
    EXPECT_TRUE(settings().connectNetwork(WLAN, "work"));
    supplicant.awaitStatus("ssid=work");
    EXPECT_TRUE(settings().removeNetwork(WLAN, "cafe"));
    EXPECT_THAT(supplicant.networks(), ElementsAre(StartsWith("0\twork\t")));
}

TEST_F(Renumbering, FindsAnySsidAgain) {
    const std::string ssids[] = {"caf\xc3\xa9",    "caf\xe9", "a\"b\\c", std::string(32, '\xd0'),
                                 "\x1b\t\x01\x7f", "my:net",  "any",     " two words "};
    supplicant.start(openNetworks({"home", "work"}));
    for (const std::string& ssid : ssids) {
        SCOPED_TRACE(ssid);
        add(ssid.c_str());
        add("last");
        ASSERT_TRUE(settings().removeNetwork(WLAN, "home"));
        ASSERT_EQ(settings().saveNetworkSettings(), 1);
        EXPECT_TRUE(settings().connectNetwork(WLAN, ssid.c_str()));
        // Selecting one disables the others.
        EXPECT_THAT(supplicant.networks(),
                    ElementsAre(HasSubstr("[DISABLED]"), Not(HasSubstr("[DISABLED]")),
                                HasSubstr("[DISABLED]")));
        EXPECT_TRUE(settings().removeNetwork(WLAN, ssid.c_str()));
        EXPECT_THAT(supplicant.networks(),
                    ElementsAre(StartsWith("0\twork\t"), StartsWith("2\tlast\t")));
        ASSERT_TRUE(settings().removeNetwork(WLAN, "last"));
        add("home");
        // The first state again, with "home" after "work".
        ASSERT_EQ(settings().saveNetworkSettings(), 1);
    }
}

// Changes a network in memory.
void edit(WifiHostSettings& settings, const char* ssid, bool (*change)(WifiNetwork&)) {
    const platwifi::SettingsLock lock(settings);
    WifiNetwork* const network = settings.getNetwork(WLAN, ssid);
    ASSERT_NE(network, nullptr) << ssid;
    EXPECT_TRUE(change(*network));
}

bool setPriority(WifiNetwork& network) {
    return network.setPriority(3);
}

bool requireKey(WifiNetwork& network) {
    return network.setKeyManagement(KEY_MGMT_WPA_PSK);
}

bool setShortKey(WifiNetwork& network) {
    return network.setPsk("short");
}

TEST_F(Renumbering, ByANetworkWithoutItsKeyDoesNotLeadToAnotherOne) {
    supplicant.start(openNetworks({"home", "work", "cafe"}));
    edit(settings(), "home", requireKey);
    EXPECT_EQ(settings().saveNetworkSettings(), 1);
    EXPECT_THAT(supplicant.networks(),
                ElementsAre(StartsWith("0\twork\t"), StartsWith("1\tcafe\t")));
    EXPECT_TRUE(settings().connectNetwork(WLAN, "work"));
    supplicant.awaitStatus("ssid=work");
    edit(settings(), "work", [](WifiNetwork& network) { return network.setEAPIdentity("me"); });
    EXPECT_EQ(settings().saveNetworkSettings(), 1);
    EXPECT_THAT(supplicant.ask("get_network 0 identity"), ElementsAre("\"me\""));
    EXPECT_THAT(supplicant.ask("get_network 1 identity"), ElementsAre("FAIL"));
    edit(settings(), "home", setPriority);
    EXPECT_EQ(settings().saveNetworkSettings(), 0) << "the supplicant has lost it";
    EXPECT_FALSE(settings().connectNetwork(WLAN, "home"));
}

TEST_F(Renumbering, ByANetworkWhoseKeyWasRefusedDoesNotLeadToAnotherOne) {
    supplicant.start(openNetworks({"home", "work"}));
    edit(settings(), "home", requireKey);
    edit(settings(), "home", setShortKey);
    EXPECT_EQ(settings().saveNetworkSettings(), 1);
    EXPECT_TRUE(settings().removeNetwork(WLAN, "work"));
    EXPECT_THAT(supplicant.networks(), IsEmpty());
}

TEST_F(Renumbering, AfterARemovalAndAReloadDoesNotLeadToAnotherNetwork) {
    supplicant.start(openNetworks({"home", "work", "cafe"}));
    EXPECT_TRUE(settings().removeNetwork(WLAN, "home"));
    EXPECT_TRUE(settings().refreshAllSettings());
    edit(settings(), "cafe", setPriority);
    EXPECT_EQ(settings().saveNetworkSettings(), 1);
    EXPECT_TRUE(settings().connectNetwork(WLAN, "work"));
    supplicant.awaitStatus("ssid=work");
    edit(settings(), "work", [](WifiNetwork& network) { return network.setEAPIdentity("me"); });
    EXPECT_EQ(settings().saveNetworkSettings(), 1);
    EXPECT_THAT(supplicant.ask("get_network 0 identity"), ElementsAre("\"me\""));
    EXPECT_THAT(supplicant.ask("get_network 1 identity"), ElementsAre("FAIL"));
}

// The first network of the configuration file. If the supplicant leaves it out of its file, the second
// gets its id.
struct Configured {
    const char* name;
    const char* fields;
};

const Configured CONFIGURED[] = {
    {"Open", "key_mgmt=NONE"},
    {"Default", ""},
    {"Psk", "key_mgmt=WPA-PSK"},
    {"PskSha256", "key_mgmt=WPA-PSK-SHA256"},
    {"PskWithKey", "key_mgmt=WPA-PSK\npsk=\"12345678\""},
    {"PskAndEap", "key_mgmt=WPA-PSK WPA-EAP\nidentity=\"x\""},
    {"NoneAndPsk", "key_mgmt=NONE WPA-PSK"},
    {"Eap", "key_mgmt=WPA-EAP"},
    {"Ieee8021x", "key_mgmt=IEEE8021X"},
    {"WpaNone", "key_mgmt=WPA-NONE"},
    {"Sae", "key_mgmt=SAE"},
    {"SaeWithPassword", "key_mgmt=SAE\nsae_password=\"x\""},
    {"SaeWithKeyInHexadecimal",
     "key_mgmt=WPA-PSK SAE\npsk=0123456789abcdef0123456789abcdef0123456789abcdef0123456789abcdef"},
    {"Wps", "key_mgmt=WPS"},
    {"Disabled", "key_mgmt=NONE\ndisabled=1"},
};

class RenumberingBy : public Renumbering, public testing::WithParamInterface<Configured> {};

// ID-2
TEST_P(RenumberingBy, ANetworkThatIsLeftOutOfTheFileDoesNotLeadToAnotherOne) {
    supplicant.start(std::string("network={\nssid=\"first\"\n") + GetParam().fields + "\n}\n" +
                     openNetworks({"second", "third"}));
    for (int i = 0; i < 2; ++i) {
        edit(
            settings(), "third",
            i == 0 ? setPriority : [](WifiNetwork& network) { return network.setPriority(4); });
        EXPECT_EQ(settings().saveNetworkSettings(), 1);
        EXPECT_TRUE(settings().connectNetwork(WLAN, "second"));
        for (const std::string& line : supplicant.networks())
            EXPECT_EQ(line.find("[DISABLED]") == std::string::npos,
                      line.find("\tsecond\t") != std::string::npos)
                << line;
    }
}

INSTANTIATE_TEST_SUITE_P(Supplicant, RenumberingBy, testing::ValuesIn(CONFIGURED),
                         [](const auto& test) { return test.param.name; });

// How the client prints bytes that are not ASCII.
std::string printed(const std::string& bytes) {
    std::ostringstream text;
    for (const char byte : bytes)
        text << "\\x" << std::hex << (static_cast<unsigned int>(byte) & 0xff);
    return text.str();
}

// 8 emoji, and 16 Cyrillic letters: the client prints 128 characters for each.
TEST_F(Renumbering, LeadsToNoOtherNetworkThanTheOneWithALongSsid) {
    const std::string ssids[] = {
        "\xf0\x9f\x98\x80\xf0\x9f\x98\x81\xf0\x9f\x98\x82\xf0\x9f\x98\x83"
        "\xf0\x9f\x98\x84\xf0\x9f\x98\x85\xf0\x9f\x98\x86\xf0\x9f\x98\x87",
        "\xd0\xb0\xd0\xb1\xd0\xb2\xd0\xb3\xd0\xb4\xd0\xb5\xd0\xb6\xd0\xb7"
        "\xd0\xb8\xd0\xb9\xd0\xba\xd0\xbb\xd0\xbc\xd0\xbd\xd0\xbe\xd0\xbf"};
    supplicant.start(openNetworks({"home", ssids[0], "work", ssids[1], "cafe"}));
    settings().refreshAllSettings();
    for (const std::string& bytes : ssids) {
        SCOPED_TRACE(bytes);
        const std::string ssid = printed(bytes);
        edit(settings(), ssid.c_str(), setPriority);
        EXPECT_EQ(settings().saveNetworkSettings(), 1);
        EXPECT_TRUE(settings().connectNetwork(WLAN, ssid.c_str()));
        supplicant.awaitStatus("ssid=" + ssid);
        supplicant.awaitStatus("wpa_state=COMPLETED");
        {
            const platwifi::SettingsLock lock(settings());
            const WifiNetwork* const current = settings().getCurrentNetwork(WLAN);
            EXPECT_EQ(current, settings().getNetwork(WLAN, ssid.c_str()));
        }
    }
    EXPECT_THAT(supplicant.ask("get_network 0 priority"), ElementsAre("0"));
    EXPECT_THAT(supplicant.ask("get_network 1 priority"), ElementsAre("3"));
    EXPECT_THAT(supplicant.ask("get_network 3 priority"), ElementsAre("3"));
    EXPECT_TRUE(settings().removeNetwork(WLAN, printed(ssids[0]).c_str()));
    EXPECT_THAT(supplicant.networks(), ElementsAre(StartsWith("0\thome\t"), StartsWith("2\twork\t"),
                                                   StartsWith("3\t"), StartsWith("4\tcafe\t")));
}

} // namespace
