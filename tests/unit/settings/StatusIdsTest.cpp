// After a save, the list that a refresh of the status reads also shows the new ids.

#include "StatusTest.h"

#include "settings/replies/PrintedSsid.h"

using test::Commands;
using test::LIST_NETWORKS;
using test::SCAN_RESULTS;
using testing::ElementsAre;

namespace {

class StatusIds : public test::StatusTest {
protected:
    // The first of three networks was removed, and that was saved.
    void loadAndSave() {
        load(test::LoadedHost::linesOf({"gone", "home", "work"}));
        acceptAll();
        EXPECT_TRUE(settings().removeNetwork("wlan0", "gone"));
        EXPECT_EQ(settings().saveNetworkSettings(), 1);
    }

    Commands commandsOfConnecting(const char* ssid, bool result) {
        list("0\thome\tany\t\n");
        EXPECT_EQ(settings().connectNetwork("wlan0", ssid), result);
        return commands();
    }
};

TEST_F(StatusIds, AreThoseOfTheListAfterASave) {
    loadAndSave();
    EXPECT_TRUE(refresh("0\thome\tany\t[DISABLED]\n1\twork\tany\t[CURRENT]\n"));
    EXPECT_THAT(commands(), ElementsAre(LIST_NETWORKS, SCAN_RESULTS));
    EXPECT_EQ(statusOf("home"), NETWORK_STATUS_DISABLED);
    EXPECT_EQ(statusOf("work"), NETWORK_STATUS_CONNECTING);
    EXPECT_EQ(current(), "work");
    EXPECT_EQ(network("home")->getNetworkId(), 0);
    EXPECT_EQ(network("work")->getNetworkId(), 1);
    EXPECT_THAT(commandsOfConnecting("work", true), ElementsAre("-iwlan0 select 1"))
        << "they need no other confirmation";
}

// Another network may have the id by now.
TEST_F(StatusIds, AreNotUsedForANetworkThatIsNotListed) {
    loadAndSave();
    setStatus("work", NETWORK_STATUS_CONNECTED);
    EXPECT_TRUE(refresh("0\thome\tany\t\n2\tother\tany\t[DISABLED]\n"));
    EXPECT_EQ(statusOf("work"), NETWORK_STATUS_CONNECTED);
    EXPECT_EQ(statusOf("home"), NETWORK_STATUS_ENABLED);
    EXPECT_THAT(commandsOfConnecting("work", false), ElementsAre(LIST_NETWORKS))
        << "still to be confirmed";
}

TEST_F(StatusIds, StayStaleWhenTheListCannotBeRead) {
    loadAndSave();
    standIn.reset();
    EXPECT_FALSE(refreshLater());
    EXPECT_THAT(commandsOfConnecting("home", true), ElementsAre(LIST_NETWORKS, "-iwlan0 select 0"));
}

TEST_F(StatusIds, DoNotKeepALineWithoutAnyFieldFromEndingTheRefresh) {
    loadAndSave();
    EXPECT_FALSE(refresh(" \n")) << "no network is listed";
}

// The rest of a long line would be a line of network 0.
TEST_F(StatusIds, AreThoseOfWholeLines) {
    const std::string ssid = platwifi::printedSsid(std::string(32, '\xd0'));
    load(test::LoadedHost::linesOf({"home", ssid}));
    ASSERT_NE(network(ssid), nullptr);
    EXPECT_TRUE(refresh("0\thome\tany\t\n1\t" + ssid + "\tany\t[CURRENT]\n",
                        "02:00:00:00:01:00\t2412\t185\t[ESS]\t" + ssid + "\n"));
    EXPECT_EQ(statusOf("home"), NETWORK_STATUS_ENABLED);
    EXPECT_EQ(statusOf(ssid), NETWORK_STATUS_CONNECTING);
    EXPECT_EQ(current(), ssid);
    EXPECT_STREQ(network(ssid)->getBssid(), "02:00:00:00:01:00");
    EXPECT_EQ(network(ssid)->getChannel(), 1U);
    scriptLoad("", "ssid=" + ssid + "\nid=1\nwpa_state=COMPLETED\n");
    EXPECT_EQ(settings().getCurrentNetwork("wlan0"), network(ssid));
    EXPECT_EQ(settings().getCurrentStatus("wlan0"), static_cast<unsigned int>(WPA_STATE_COMPLETED));
    EXPECT_EQ(statusOf(ssid), NETWORK_STATUS_CONNECTED);
}

// Nothing shows other ids: a network keeps the one it has.
// ID-7
TEST_F(StatusIds, AreNotTakenWithoutASave) {
    loadBoth();
    EXPECT_TRUE(refresh("0\twork\tany\t[DISABLED]\n1\thome\tany\t\n"));
    EXPECT_EQ(statusOf("home"), NETWORK_STATUS_DISABLED);
    EXPECT_EQ(network("home")->getNetworkId(), 0);
}

} // namespace
