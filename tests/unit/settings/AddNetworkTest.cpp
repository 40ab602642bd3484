#include "LoadedSettings.h"
#include "unit/model/NetworkRows.h"

using test::Commands;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

namespace {

class AddNetwork : public test::SettingsTest {
protected:
    /// Replaces the script: the client gives a new network this id and accepts all other commands.
    void creates(const std::string& id, const std::string& iface = "wlan0") {
        standIn.reset();
        standIn.on({"-i" + iface, "add_network"}).prints(id + "\n");
        answer("OK\n");
    }

    static bool add(const std::string& ssid, const char* iface = "wlan0") {
        return settings().addNetwork(iface, ssid.c_str());
    }

    static Commands creation(const std::string& id, const std::string& ssid) {
        return {"-iwlan0 add_network", "-iwlan0 set_network " + id + " ssid \"" + ssid + "\"",
                "-iwlan0 enable_network " + id};
    }
};

// OP-2
TEST_F(AddNetwork, CreatesItInTheSupplicantAndPutsItInFront) {
    load("0\thome\tany\t\n1\twork\tany\t\n");
    creates("7");
    EXPECT_TRUE(add("new"));
    EXPECT_EQ(commands(), creation("7", "new"));
    EXPECT_THAT(ssids(), ElementsAre("new", "work", "home"));
    EXPECT_EQ(network("new")->getNetworkId(), 7);
    EXPECT_THAT(test::dirtyOf(*network("new")), ElementsAre("ssid"));
    EXPECT_TRUE(network("new")->getNetworkDirty());
    EXPECT_EQ(network("new")->getNetworkStatus(), NETWORK_STATUS_UNKNOWN);
}

// OP-3
TEST_F(AddNetwork, RefusesAnSsidThatIsThereWithoutACommand) {
    load("0\thome\tany\t\n");
    creates("7");
    EXPECT_FALSE(add("home"));
    EXPECT_THAT(commands(), IsEmpty());
    EXPECT_TRUE(add("Home")) << "another one";
    EXPECT_FALSE(add("Home"));
    EXPECT_EQ(commands(), creation("7", "Home"));
}

// OP-1
TEST_F(AddNetwork, AddsNothingWhenAStepFails) {
    const test::Arguments steps[] = {{"-iwlan0", "add_network"},
                                     {"-iwlan0", "set_network", "3", "ssid", "\"new\""},
                                     {"-iwlan0", "enable_network", "3"}};
    load("0\thome\tany\t\n");
    std::size_t count = 0;
    for (const test::Arguments& step : steps) {
        standIn.reset();
        standIn.on(step).prints("FAIL\n");
        standIn.on({"-iwlan0", "add_network"}).prints("3\n");
        answer("OK\n");
        EXPECT_FALSE(add("new"));
        EXPECT_THAT(commands(), SizeIs(++count));
        EXPECT_THAT(ssids(), ElementsAre("home"));
    }
    creates("4");
    EXPECT_TRUE(add("new")) << "nothing of it was left";
}

TEST_F(AddNetwork, TakesAnyText) {
    load("");
    creates("1");
    const std::string texts[] = {"x",        std::string(32, 's'), std::string(200, 's'),
                                 "caf\xe9",  "\xf0\x9f\x98\x80",   "a\"b\\",
                                 "two words"};
    for (const std::string& ssid : texts) {
        EXPECT_TRUE(add(ssid));
        EXPECT_EQ(standIn.calls().end()[-2].back(), "\"" + ssid + "\"");
        EXPECT_EQ(ssids().front(), ssid);
        EXPECT_FALSE(add(ssid)) << ssid;
    }
}

// A network stays without SSID when it is given an empty one; it is like no other.
TEST_F(AddNetwork, AddsANetworkWithoutSsidForAnEmptyOne) {
    load("0\thome\tany\t\n");
    creates("1");
    EXPECT_TRUE(add(""));
    EXPECT_EQ(commands(), creation("1", ""));
    EXPECT_TRUE(add(""));
    ASSERT_NE(network("home"), nullptr);
    EXPECT_EQ(network("home")->getNext(), nullptr) << "the last one";
    EXPECT_EQ(network(""), nullptr);
}

TEST_F(AddNetwork, RefusesBadArguments) {
    load("0\thome\tany\t\n");
    creates("1");
    EXPECT_FALSE(settings().addNetwork("wlan0", nullptr));
    for (const char* const iface : {static_cast<const char*>(nullptr), "", "fourteen-chars"})
        EXPECT_FALSE(add("new", iface));
    EXPECT_THAT(ssids(), ElementsAre("home"));
    EXPECT_THAT(commands(), IsEmpty());
}

TEST_F(AddNetwork, NamesTheInterfaceThatItIsGiven) {
    load("");
    creates("2", "wlan1");
    EXPECT_TRUE(add("new", "wlan1"));
    EXPECT_THAT(commands(), testing::Each(testing::StartsWith("-iwlan1 ")));
}

TEST_F(AddNetwork, CreatesItInTheSupplicantWithoutAListToPutItIn) {
    fail();
    creates("1");
    EXPECT_TRUE(add("new"));
    EXPECT_EQ(commands(), creation("1", "new"));
    EXPECT_EQ(network("new"), nullptr);
    EXPECT_TRUE(add("new")) << "it is not in memory";
}

} // namespace
