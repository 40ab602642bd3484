#include "LoadedSettings.h"

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

namespace {

const std::string ENABLED_NETWORKS = "0\thome\tany\t\n3\twork\tany\t\n5\tcafe\tany\t\n";

class RemoveNetwork : public test::SettingsTest {
protected:
    /// On "work". The client accepts every command.
    RemoveNetwork() {
        load(ENABLED_NETWORKS, "ssid=work\nwpa_state=COMPLETED\n");
        answer("OK\n");
    }

    static bool remove(const std::string& ssid, const char* iface = "wlan0") {
        return settings().removeNetwork(iface, ssid.c_str());
    }
};

TEST_F(RemoveNetwork, RemovesItFromTheSupplicantAndFromMemory) {
    EXPECT_TRUE(remove("work"));
    EXPECT_THAT(commands(), ElementsAre("-iwlan0 remove_network 3"));
    EXPECT_THAT(ssids(), ElementsAre("cafe", "home"));
    EXPECT_TRUE(remove("cafe", "wlan1"));
    EXPECT_TRUE(remove("home"));
    EXPECT_THAT(commands(), ElementsAre("-iwlan0 remove_network 3", "-iwlan1 remove_network 5",
                                        "-iwlan0 remove_network 0"));
    EXPECT_THAT(ssids(), IsEmpty());
}

// OP-3
TEST_F(RemoveNetwork, SucceedsWithoutACommandForAnUnknownSsid) {
    for (const std::string& ssid :
         {std::string(), std::string("h"), std::string("Home"), std::string(32, 'h'),
          std::string(200, 'h'), std::string("\xff")})
        EXPECT_TRUE(remove(ssid)) << ssid;
    EXPECT_TRUE(settings().removeNetwork("wlan0", nullptr));
    EXPECT_TRUE(settings().removeNetwork(nullptr, nullptr));
    EXPECT_THAT(commands(), IsEmpty());
    EXPECT_THAT(ssids(), SizeIs(3));
}

TEST_F(RemoveNetwork, LeavesItWhereItIsWhenTheSupplicantRefuses) {
    standIn.reset();
    answer("FAIL\n");
    EXPECT_FALSE(remove("work"));
    for (const char* const iface : {static_cast<const char*>(nullptr), "", "fourteen-chars"})
        EXPECT_FALSE(remove("work", iface));
    EXPECT_THAT(commands(), ElementsAre("-iwlan0 remove_network 3"));
    EXPECT_THAT(ssids(), SizeIs(3));
    EXPECT_EQ(current(), "work");
}

TEST_F(RemoveNetwork, TakesItsOwnTextForTheSsid) {
    EXPECT_TRUE(settings().removeNetwork("wlan0", network("work")->getSsid()));
    EXPECT_THAT(ssids(), ElementsAre("cafe", "home"));
}

TEST_F(RemoveNetwork, ClearsTheCurrentNetworkOnlyWhereItIsTheOne) {
    EXPECT_TRUE(remove("home"));
    EXPECT_EQ(current(), "work");
    EXPECT_EQ(statusOf("work"), NETWORK_STATUS_CONNECTED);
    EXPECT_TRUE(remove("work"));
    EXPECT_EQ(current(), "none");
}

TEST_F(RemoveNetwork, RemovesTheFirstOfTheListWhenSeveralHaveTheSsid) {
    network("home")->setSsid("work");
    EXPECT_TRUE(remove("work"));
    EXPECT_THAT(commands(), ElementsAre("-iwlan0 remove_network 3"));
    EXPECT_EQ(network("work")->getNetworkId(), 0);
}

TEST_F(RemoveNetwork, SucceedsWithoutNetworks) {
    fail();
    EXPECT_TRUE(remove("home"));
    EXPECT_THAT(commands(), IsEmpty());
}

} // namespace
