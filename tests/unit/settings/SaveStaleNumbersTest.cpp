// The supplicant counts its networks anew when it reads its configuration: numbers after a save that
// followed an addition or a removal.

#include "SaveSettings.h"

using namespace test;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

class SaveWithStaleNumbers : public SaveSettings {
protected:
    static const Arguments LIST;

    static Arguments priority(const std::string& id) {
        return wlan0({"set_network", id, "priority", "5"});
    }

    // Saved without "home", which was the first of three.
    void makeStale() {
        load({"home", "work", "train"});
        ASSERT_TRUE(settings->removeNetwork("wlan0", "home"));
        ASSERT_THAT(saveGiving(1), ElementsAre(SAVE, REREAD));
    }
};

const Arguments SaveWithStaleNumbers::LIST = wlan0({"list_networks"});

TEST_F(SaveWithStaleNumbers, AsksForThemBeforeTheFirstField) {
    makeStale();
    scriptList({"work", "train"});
    network("train").setPriority(5);
    network("work").setPriority(5);
    EXPECT_THAT(saveGiving(1), ElementsAre(LIST, priority("1"), priority("0"), SAVE, REREAD));
}

TEST_F(SaveWithStaleNumbers, AsksForThemOnce) {
    makeStale();
    scriptList({"work", "train"});
    network("train").setPriority(5);
    EXPECT_EQ(save(), 1);
    network("train").setPriority(6);
    EXPECT_THAT(saveGiving(1),
                ElementsAre(wlan0({"set_network", "1", "priority", "6"}), SAVE, REREAD));
}

TEST_F(SaveWithStaleNumbers, DoesNotAskWithoutAFieldToWrite) {
    makeStale();
    EXPECT_THAT(saveGiving(1), IsEmpty());
    scriptList({"work", "train"});
    ASSERT_TRUE(settings->removeNetwork("wlan0", "work"));
    EXPECT_THAT(saveGiving(1), ElementsAre(SAVE, REREAD));
    EXPECT_THAT(saveGiving(1), IsEmpty());
}

// ID-3, SAVE-13
TEST_F(SaveWithStaleNumbers, SkipsANetworkThatTheSupplicantDoesNotName) {
    makeStale();
    scriptList({"train"});
    network("train").setPriority(5);
    network("work").setPriority(5);
    EXPECT_THAT(saveGiving(0), ElementsAre(LIST, priority("0"), SAVE, REREAD));
    EXPECT_EQ(FakeWatchdog::signals, 2) << "what was written is saved";
    EXPECT_FALSE(network("train").getPriorityDirty());
    EXPECT_TRUE(network("work").getPriorityDirty());
    EXPECT_THAT(saveGiving(0), ElementsAre(LIST)) << "nothing else to write";
    EXPECT_TRUE(network("work").getPriorityDirty());
    scriptList({"train", "work"});
    EXPECT_THAT(saveGiving(1), ElementsAre(LIST, priority("1"), SAVE, REREAD));
    EXPECT_FALSE(network("work").getPriorityDirty());
}

TEST_F(SaveWithStaleNumbers, SavesARemovalBesideANetworkThatItSkips) {
    makeStale();
    scriptList({"train"});
    ASSERT_TRUE(settings->removeNetwork("wlan0", "train"));
    network("work").setPriority(5);
    EXPECT_THAT(saveGiving(0), ElementsAre(LIST, SAVE, REREAD));
    EXPECT_TRUE(network("work").getPriorityDirty());
    EXPECT_THAT(saveGiving(0), ElementsAre(LIST)) << "the removal is saved";
}

// SAVE-12
TEST_F(SaveWithStaleNumbers, FailsAndWritesNothingWhenTheSupplicantDoesNotAnswer) {
    makeStale();
    standIn.reset();
    standIn.on({"-iwlan0", "list_networks"}).exits(255);
    standIn.on({"*"}).prints("OK\n");
    network("train").setPriority(5);
    EXPECT_THAT(saveGiving(0), ElementsAre(LIST));
    EXPECT_TRUE(network("train").getPriorityDirty());
    EXPECT_EQ(FakeWatchdog::signals, 1) << "that of the save before";
}

TEST_F(SaveWithStaleNumbers, AsksForThemAfterAnAdditionToo) {
    load({"home"});
    standIn.reset();
    standIn.on({"-iwlan0", "add_network"}).prints("4\n");
    standIn.on({"*"}).prints("OK\n");
    ASSERT_TRUE(settings->addNetwork("wlan0", "work"));
    network("work").cleanDirtyFields();
    network("work").setPriority(5);
    EXPECT_THAT(saveGiving(1), ElementsAre(priority("4"), SAVE, REREAD)) << "not stale yet";
    scriptList({"home", "work"});
    network("work").setPriority(6);
    EXPECT_THAT(saveGiving(1),
                ElementsAre(LIST, wlan0({"set_network", "1", "priority", "6"}), SAVE, REREAD));
}

TEST_F(SaveWithStaleNumbers, KeepsNumbersWhoseListWasValid) {
    load({"home"});
    network("home").setPriority(5);
    EXPECT_THAT(saveGiving(1), ElementsAre(priority("0"), SAVE, REREAD));
    network("home").setPriority(6);
    EXPECT_THAT(saveGiving(1),
                ElementsAre(wlan0({"set_network", "0", "priority", "6"}), SAVE, REREAD));
}

TEST_F(SaveWithStaleNumbers, KeepsNumbersWhenTheConfigurationWasNotReadAgain) {
    load({"home", "work"});
    ASSERT_TRUE(settings->removeNetwork("wlan0", "home"));
    standIn.reset();
    standIn.on({"-iwlan0", "save_config"}).prints("FAIL\n");
    standIn.on({"*"}).prints("OK\n");
    EXPECT_THAT(saveGiving(0), ElementsAre(SAVE));
    network("work").setPriority(5);
    EXPECT_THAT(saveGiving(0), ElementsAre(priority("1"), SAVE));
}

TEST_F(SaveWithStaleNumbers, StaysStaleThroughASaveThatWritesNoField) {
    makeStale();
    ASSERT_EQ(save(), 1);
    scriptList({"work", "train"});
    EXPECT_TRUE(settings->connectNetwork("wlan0", "train"));
    EXPECT_THAT(standIn.calls(), ElementsAre(LIST, wlan0({"select", "1"})));
}

TEST_F(SaveWithStaleNumbers, FindsANetworkThatWasRenamedSince) {
    makeStale();
    scriptList({"work", "train"});
    network("train").setSsid("tram");
    EXPECT_THAT(saveGiving(1),
                ElementsAre(LIST, wlan0({"set_network", "1", "ssid", "\"tram\""}), SAVE, REREAD));
}

// Its memory may be that of the next one.
TEST_F(SaveWithStaleNumbers, ForgetsTheSsidOfANetworkThatIsRemoved) {
    makeStale();
    scriptList({"work", "train"});
    ASSERT_TRUE(settings->removeNetwork("wlan0", "train"));
    ASSERT_EQ(save(), 1);
    standIn.reset();
    standIn.on({"-iwlan0", "add_network"}).prints("1\n");
    standIn.on({"-iwlan0", "list_networks"}).prints("header\n0\twork\tany\t\n1\tbus\tany\t\n");
    standIn.on({"*"}).prints("OK\n");
    ASSERT_TRUE(settings->addNetwork("wlan0", "bus"));
    EXPECT_TRUE(settings->connectNetwork("wlan0", "bus"));
    EXPECT_EQ(standIn.calls().back(), wlan0({"select", "1"}));
}

} // namespace
