#include "settings/WifiHostSettings.h"

#include "LoadedSettings.h"
#include "model/WifiNetwork.h"
#include "settings/SettingsLock.h"
#include "unit/model/NetworkRows.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

using platwifi::SettingsLock;
using test::Commands;
using test::ssidsOf;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

class AddNetwork : public testing::Test {
protected:
    void creates(const std::string& number) {
        loaded.standIn.on({"-iwlan0", "add_network"}).prints(number + "\n");
        loaded.answer("OK\n");
    }

    static Commands creation(const std::string& number, const std::string& ssid) {
        return {"-iwlan0 add_network", "-iwlan0 set_network " + number + " ssid \"" + ssid + "\"",
                "-iwlan0 enable_network " + number};
    }

    test::LoadedSettings loaded;
};

// OP-2
TEST_F(AddNetwork, CreatesItInTheSupplicantAndPutsItInFront) {
    WifiHostSettings& settings = loaded.load("0\thome\tany\t\n1\twork\tany\t\n");
    creates("7");
    EXPECT_TRUE(settings.addNetwork("wlan0", "new"));
    EXPECT_EQ(loaded.commands(), creation("7", "new"));
    EXPECT_THAT(ssidsOf(settings), ElementsAre("new", "work", "home"));
    const SettingsLock lock(settings);
    const WifiNetwork* const network = settings.getNetwork("wlan0", "new");
    EXPECT_EQ(network->getNetworkId(), 7);
    EXPECT_THAT(test::dirtyOf(*network), ElementsAre("ssid"));
    EXPECT_TRUE(network->getNetworkDirty());
    EXPECT_EQ(network->getNetworkStatus(), static_cast<unsigned int>(NETWORK_STATUS_UNKNOWN));
}

// OP-3
TEST_F(AddNetwork, RefusesAnSsidThatIsThereWithoutACommand) {
    WifiHostSettings& settings = loaded.load("0\thome\tany\t\n");
    creates("7");
    EXPECT_FALSE(settings.addNetwork("wlan0", "home"));
    EXPECT_THAT(loaded.commands(), IsEmpty());
    EXPECT_TRUE(settings.addNetwork("wlan0", "Home")) << "another one";
    EXPECT_FALSE(settings.addNetwork("wlan0", "Home"));
    EXPECT_EQ(loaded.commands(), creation("7", "Home"));
}

// OP-1
TEST_F(AddNetwork, AddsNothingWhenAStepFails) {
    WifiHostSettings& settings = loaded.load("0\thome\tany\t\n");
    loaded.answer("FAIL\n");
    EXPECT_FALSE(settings.addNetwork("wlan0", "new"));
    EXPECT_EQ(loaded.commands().size(), 1U);

    loaded.standIn.reset();
    loaded.standIn.on({"-iwlan0", "add_network"}).prints("3\n");
    loaded.answer("FAIL\n");
    EXPECT_FALSE(settings.addNetwork("wlan0", "new"));
    EXPECT_EQ(loaded.commands().size(), 2U);

    loaded.standIn.reset();
    loaded.standIn.on({"-iwlan0", "add_network"}).prints("3\n");
    loaded.standIn.on({"-iwlan0", "enable_network", "3"}).prints("FAIL\n");
    loaded.answer("OK\n");
    EXPECT_FALSE(settings.addNetwork("wlan0", "new"));
    EXPECT_EQ(loaded.commands().size(), 3U);
    EXPECT_THAT(ssidsOf(settings), ElementsAre("home"));

    loaded.standIn.reset();
    creates("4");
    EXPECT_TRUE(settings.addNetwork("wlan0", "new")) << "nothing of it was left";
}

TEST_F(AddNetwork, TakesAnyText) {
    WifiHostSettings& settings = loaded.load("");
    creates("1");
    const std::string ssids[] = {"x",        std::string(32, 's'), std::string(200, 's'),
                                 "caf\xe9",  "\xf0\x9f\x98\x80",   "a\"b\\",
                                 "two words"};
    for (const std::string& ssid : ssids) {
        EXPECT_TRUE(settings.addNetwork("wlan0", ssid.c_str()));
        EXPECT_EQ(loaded.standIn.calls().end()[-2].back(), "\"" + ssid + "\"");
        EXPECT_EQ(ssidsOf(settings).front(), ssid);
        EXPECT_FALSE(settings.addNetwork("wlan0", ssid.c_str())) << ssid;
    }
}

// A network stays without SSID when it is given an empty one; it is like no other.
TEST_F(AddNetwork, AddsANetworkWithoutSsidForAnEmptyOne) {
    WifiHostSettings& settings = loaded.load("0\thome\tany\t\n");
    creates("1");
    EXPECT_TRUE(settings.addNetwork("wlan0", ""));
    EXPECT_EQ(loaded.commands(), creation("1", ""));
    EXPECT_TRUE(settings.addNetwork("wlan0", ""));
    const SettingsLock lock(settings);
    const WifiNetwork* const home = settings.getNetwork("wlan0", "home");
    ASSERT_NE(home, nullptr);
    EXPECT_EQ(home->getNext(), nullptr) << "the last one";
    EXPECT_EQ(settings.getNetwork("wlan0", ""), nullptr);
}

TEST_F(AddNetwork, RefusesBadArguments) {
    WifiHostSettings& settings = loaded.load("0\thome\tany\t\n");
    creates("1");
    EXPECT_FALSE(settings.addNetwork("wlan0", nullptr));
    EXPECT_FALSE(settings.addNetwork(nullptr, "new"));
    EXPECT_FALSE(settings.addNetwork("", "new"));
    EXPECT_FALSE(settings.addNetwork("fourteen-chars", "new"));
    EXPECT_THAT(ssidsOf(settings), ElementsAre("home"));
    EXPECT_THAT(loaded.commands(), IsEmpty());
}

TEST_F(AddNetwork, NamesTheInterfaceThatItIsGiven) {
    WifiHostSettings& settings = loaded.load("");
    loaded.standIn.on({"-iwlan1", "add_network"}).prints("2\n");
    loaded.answer("OK\n");
    EXPECT_TRUE(settings.addNetwork("wlan1", "new"));
    EXPECT_THAT(loaded.commands(), testing::Each(testing::StartsWith("-iwlan1 ")));
}

TEST_F(AddNetwork, CreatesItInTheSupplicantWithoutAListToPutItIn) {
    WifiHostSettings& settings = loaded.fail();
    creates("1");
    EXPECT_TRUE(settings.addNetwork("wlan0", "new"));
    EXPECT_EQ(loaded.commands(), creation("1", "new"));
    EXPECT_EQ(settings.getNetwork("wlan0", "new"), nullptr);
    EXPECT_TRUE(settings.addNetwork("wlan0", "new")) << "nobody remembers it";
}

} // namespace
