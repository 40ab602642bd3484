#include "LoadedSettings.h"

using testing::IsEmpty;

namespace {

class NetworkLookup : public test::SettingsTest {
protected:
    NetworkLookup() { load("0\thome\tany\t\n1\twork\tany\t\n2\tcaf\\xc3\\xa9\tany\t\n"); }
};

TEST_F(NetworkLookup, FindsTheExactSsidWhateverTheInterface) {
    for (const char* const iface : {"wlan0", "wlan1", "", static_cast<const char*>(nullptr)}) {
        const WifiNetwork* const found = settings().getNetwork(iface, "work");
        ASSERT_NE(found, nullptr);
        EXPECT_STREQ(found->getSsid(), "work");
        EXPECT_EQ(found->getNetworkId(), 1);
    }
    EXPECT_NE(network("caf\\xc3\\xa9"), nullptr);
    EXPECT_THAT(commands(), IsEmpty());
}

TEST_F(NetworkLookup, FindsNothingElse) {
    EXPECT_EQ(settings().getNetwork("wlan0", nullptr), nullptr);
    for (const std::string& ssid :
         {std::string(), std::string("Home"), std::string("hom"), std::string("home "),
          std::string("h"), std::string(200, 'h'), std::string("\xff\xfe")})
        EXPECT_EQ(network(ssid), nullptr) << ssid;
    fail();
    EXPECT_EQ(network("home"), nullptr);
}

TEST_F(NetworkLookup, FindsTheFirstOfTheListWhenSeveralHaveTheSsid) {
    network("home")->setSsid("work"); // the last of the list
    EXPECT_EQ(network("work")->getNetworkId(), 1);
    network("work")->setSsid("home");
    EXPECT_EQ(network("work")->getNetworkId(), 0);
}

TEST_F(NetworkLookup, PassesOverANetworkWithoutSsid) {
    network("work")->setSsid(nullptr);
    EXPECT_EQ(settings().getNetwork("wlan0", nullptr), nullptr);
    EXPECT_EQ(network(""), nullptr);
    EXPECT_NE(network("home"), nullptr) << "behind it";
}

TEST_F(NetworkLookup, FindsAnEmptySsid) {
    WifiNetwork* const found = network("work");
    found->setSsid("");
    EXPECT_EQ(network(""), found);
}

} // namespace
