// After the supplicant has assigned new network ids, an operation still reaches its own network.

#include "SettingsTest.h"

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

class Renumbering : public test::SettingsTest {
protected:
    // "work" has the id 0 now.
    void expectIdentityReachesWork() {
        EXPECT_TRUE(settings().connectNetwork(WLAN, "work"));
        supplicant.awaitStatus("ssid=work");
        change("work", [](WifiNetwork& network) { return network.setEAPIdentity("me"); });
        EXPECT_EQ(settings().saveNetworkSettings(), 1);
        EXPECT_THAT(supplicant.ask("get_network 0 identity"), ElementsAre("\"me\""));
        EXPECT_THAT(supplicant.ask("get_network 1 identity"), ElementsAre("FAIL"));
    }
};

TEST_F(Renumbering, DoesNotLeadToAnotherNetwork) {
    load(openNetworks({"home", "work", "cafe"}));
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
    load(openNetworks({"home", "work"}));
    for (const std::string& ssid : ssids) {
        SCOPED_TRACE(ssid);
        addOpen(ssid);
        addOpen("last");
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
        addOpen("home");
        // The first state again, with "home" after "work".
        ASSERT_EQ(settings().saveNetworkSettings(), 1);
    }
}

bool requireKey(WifiNetwork& network) {
    return network.setKeyManagement(KEY_MGMT_WPA_PSK);
}

bool setShortKey(WifiNetwork& network) {
    return network.setPsk("short");
}

TEST_F(Renumbering, ByANetworkWithoutItsKeyDoesNotLeadToAnotherOne) {
    load(openNetworks({"home", "work", "cafe"}));
    change("home", requireKey);
    EXPECT_EQ(settings().saveNetworkSettings(), 1);
    EXPECT_THAT(supplicant.networks(),
                ElementsAre(StartsWith("0\twork\t"), StartsWith("1\tcafe\t")));
    expectIdentityReachesWork();
    changePriority("home", 3);
    EXPECT_EQ(settings().saveNetworkSettings(), 0) << "the supplicant has lost it";
    EXPECT_FALSE(settings().connectNetwork(WLAN, "home"));
}

TEST_F(Renumbering, ByANetworkWhoseKeyWasRefusedDoesNotLeadToAnotherOne) {
    load(openNetworks({"home", "work"}));
    change("home", requireKey);
    change("home", setShortKey);
    EXPECT_EQ(settings().saveNetworkSettings(), 1);
    EXPECT_TRUE(settings().removeNetwork(WLAN, "work"));
    EXPECT_THAT(supplicant.networks(), IsEmpty());
}

TEST_F(Renumbering, AfterARemovalAndAReloadDoesNotLeadToAnotherNetwork) {
    load(openNetworks({"home", "work", "cafe"}));
    EXPECT_TRUE(settings().removeNetwork(WLAN, "home"));
    EXPECT_TRUE(settings().refreshAllSettings());
    changePriority("cafe", 3);
    EXPECT_EQ(settings().saveNetworkSettings(), 1);
    expectIdentityReachesWork();
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
    load(std::string("network={\nssid=\"first\"\n") + GetParam().fields + "\n}\n" +
             openNetworks({"second", "third"}),
         "");
    for (const unsigned int priority : {3u, 4u}) {
        changePriority("third", priority);
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
    load(openNetworks({"home", ssids[0], "work", ssids[1], "cafe"}));
    for (const std::string& bytes : ssids) {
        SCOPED_TRACE(bytes);
        const std::string ssid = printed(bytes);
        changePriority(ssid, 3);
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
