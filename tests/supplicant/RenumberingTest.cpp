// Networks that the supplicant has numbered anew are still told apart.

#include "SupplicantTest.h"
#include "model/WifiNetwork.h"
#include "settings/SettingsLock.h"
#include "settings/WifiHostSettings.h"

#include <string>

using test::Lines;
using test::openNetworks;
using test::WLAN;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

namespace {

class Renumbering : public test::SupplicantTest {
protected:
    ~Renumbering() override { WifiHostSettings::unload(); }

    WifiHostSettings& settings() { return *WifiHostSettings::getInstance(nullptr); }

    // Without keys: the supplicant does not save a network that lacks the key it needs.
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
        // As it was at first, "home" behind "work".
        ASSERT_EQ(settings().saveNetworkSettings(), 1);
    }
}

} // namespace
