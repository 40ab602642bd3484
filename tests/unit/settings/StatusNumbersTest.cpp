// The list that a refresh of the status reads also tells the numbers that the supplicant has given its
// networks since a save.

#include "StatusFixture.h"
#include "settings/replies/PrintedSsid.h"

using testing::ElementsAre;

namespace {

const std::string LIST = "-iwlan0 list_networks";
const std::string SCAN = "-iwlan0 scan_results";

class StatusNumbers : public test::StatusFixture {
protected:
    // The first of three networks was removed, and that was saved.
    void loadAndSave() {
        load("0\tgone\tany\t\n1\thome\tany\t\n2\twork\tany\t\n");
        standIn.on({"*"}).prints("OK\n");
        EXPECT_TRUE(settings().removeNetwork("wlan0", "gone"));
        EXPECT_EQ(settings().saveNetworkSettings(), 1);
    }

    std::vector<std::string> commandsOfConnecting(const char* ssid, bool result) {
        standIn.reset();
        standIn.on({"-iwlan0", "list_networks"}).prints(test::LIST_HEADER + "0\thome\tany\t\n");
        standIn.on({"*"}).prints("OK\n");
        EXPECT_EQ(settings().connectNetwork("wlan0", ssid), result);
        return commands();
    }
};

TEST_F(StatusNumbers, AreThoseOfTheListItselfAfterASave) {
    loadAndSave();
    EXPECT_TRUE(refresh("0\thome\tany\t[DISABLED]\n1\twork\tany\t[CURRENT]\n"));
    EXPECT_THAT(commands(), ElementsAre(LIST, SCAN));
    EXPECT_EQ(statusOf("home"), NETWORK_STATUS_DISABLED);
    EXPECT_EQ(statusOf("work"), NETWORK_STATUS_CONNECTING);
    EXPECT_EQ(current(), "work");
    EXPECT_EQ(network("home")->getNetworkId(), 0);
    EXPECT_EQ(network("work")->getNetworkId(), 1);
}

TEST_F(StatusNumbers, NeedNoOtherConfirmation) {
    loadAndSave();
    EXPECT_TRUE(refresh("0\thome\tany\t\n1\twork\tany\t\n"));
    EXPECT_THAT(commandsOfConnecting("work", true), ElementsAre("-iwlan0 select 1"));
}

// Its number may be another one's by now.
TEST_F(StatusNumbers, AreNotUsedForANetworkThatIsNotListed) {
    loadAndSave();
    setStatus("work", NETWORK_STATUS_CONNECTED);
    EXPECT_TRUE(refresh("0\thome\tany\t\n2\tother\tany\t[DISABLED]\n"));
    EXPECT_EQ(statusOf("work"), NETWORK_STATUS_CONNECTED);
    EXPECT_EQ(statusOf("home"), NETWORK_STATUS_ENABLED);
    EXPECT_THAT(commandsOfConnecting("work", false), ElementsAre(LIST)) << "still to be confirmed";
}

TEST_F(StatusNumbers, StayStaleWhenTheListCannotBeRead) {
    loadAndSave();
    standIn.reset();
    standIn.on({"*"}).exits(255);
    EXPECT_FALSE(refreshLater());
    EXPECT_THAT(commandsOfConnecting("home", true), ElementsAre(LIST, "-iwlan0 select 0"));
}

TEST_F(StatusNumbers, EndTheRefreshAtALineWithoutAnyFieldAllTheSame) {
    loadAndSave();
    EXPECT_FALSE(refresh(" \n")) << "no network is listed";
}

// The rest of a long line would be the mark of network 0.
TEST_F(StatusNumbers, AreThoseOfWholeLines) {
    const std::string ssid = platwifi::printedSsid(std::string(32, '\xd0'));
    load("0\thome\tany\t\n1\t" + ssid + "\tany\t\n");
    ASSERT_NE(network(ssid.c_str()), nullptr);
    EXPECT_TRUE(refresh("0\thome\tany\t\n1\t" + ssid + "\tany\t[CURRENT]\n",
                        "02:00:00:00:01:00\t2412\t185\t[ESS]\t" + ssid + "\n"));
    EXPECT_EQ(statusOf("home"), NETWORK_STATUS_ENABLED);
    EXPECT_EQ(statusOf(ssid.c_str()), NETWORK_STATUS_CONNECTING);
    EXPECT_EQ(current(), ssid);
    EXPECT_STREQ(network(ssid.c_str())->getBssid(), "02:00:00:00:01:00");
    EXPECT_EQ(network(ssid.c_str())->getChannel(), 1U);
    replies("", "ssid=" + ssid + "\nid=1\nwpa_state=COMPLETED\n");
    EXPECT_EQ(settings().getCurrentNetwork("wlan0"), network(ssid.c_str()));
    EXPECT_EQ(settings().getCurrentStatus("wlan0"), static_cast<unsigned int>(WPA_STATE_COMPLETED));
    EXPECT_EQ(statusOf(ssid.c_str()), NETWORK_STATUS_CONNECTED);
}

// Nothing tells of other numbers: a network keeps the one it has.
// ID-7
TEST_F(StatusNumbers, AreNotTakenWithoutASave) {
    loadBoth();
    EXPECT_TRUE(refresh("0\twork\tany\t[DISABLED]\n1\thome\tany\t\n"));
    EXPECT_EQ(statusOf("home"), NETWORK_STATUS_DISABLED);
    EXPECT_EQ(network("home")->getNetworkId(), 0);
}

} // namespace
