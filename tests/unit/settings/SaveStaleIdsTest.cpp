// wpa_supplicant numbers its networks anew when it reads its configuration: ids after a save that
// followed an addition or a removal.

#include "SaveSettings.h"

using namespace test;
using test::LIST_NETWORKS;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

class SaveWithStaleIds : public SaveSettings {
protected:
    // Saved without "home", which was the first of three.
    void makeStale() {
        load({"home", "work", "train"});
        ASSERT_TRUE(settings().removeNetwork("wlan0", "home"));
        ASSERT_THAT(saveGiving(1), ElementsAre(SAVE, REREAD));
        list({"work", "train"});
    }

    void add(const std::string& ssid, const std::string& id) {
        standIn.reset();
        standIn.on({"-iwlan0", "add_network"}).prints(id + "\n");
        answer("OK\n");
        ASSERT_TRUE(settings().addNetwork("wlan0", ssid.c_str()));
        network(ssid)->cleanDirtyFields();
    }
};

TEST_F(SaveWithStaleIds, AsksForThemOnceBeforeTheFirstField) {
    makeStale();
    network("train")->setPriority(5);
    network("work")->setPriority(5);
    EXPECT_THAT(saveGiving(1),
                ElementsAre(LIST_NETWORKS, priority("1", "5"), priority("0", "5"), SAVE, REREAD));
    network("train")->setPriority(6);
    EXPECT_THAT(saveGiving(1), ElementsAre(priority("1", "6"), SAVE, REREAD));
}

TEST_F(SaveWithStaleIds, DoesNotAskWithoutAFieldToWrite) {
    makeStale();
    EXPECT_THAT(saveGiving(1), IsEmpty());
    ASSERT_TRUE(settings().removeNetwork("wlan0", "work"));
    EXPECT_THAT(saveGiving(1), ElementsAre(SAVE, REREAD));
    EXPECT_THAT(saveGiving(1), IsEmpty());
}

// ID-3, SAVE-13
TEST_F(SaveWithStaleIds, SkipsANetworkThatTheSupplicantDoesNotList) {
    makeStale();
    list({"train"});
    network("train")->setPriority(5);
    network("work")->setPriority(5);
    EXPECT_THAT(saveGiving(0), ElementsAre(LIST_NETWORKS, priority("0", "5"), SAVE, REREAD));
    EXPECT_EQ(SaveSignals::count, 2) << "what was written is saved";
    EXPECT_FALSE(network("train")->getPriorityDirty());
    EXPECT_TRUE(network("work")->getPriorityDirty());
    EXPECT_THAT(saveGiving(0), ElementsAre(LIST_NETWORKS)) << "nothing else to write";
    EXPECT_TRUE(network("work")->getPriorityDirty());
    list({"train", "work"});
    EXPECT_THAT(saveGiving(1), ElementsAre(LIST_NETWORKS, priority("1", "5"), SAVE, REREAD));
    EXPECT_FALSE(network("work")->getPriorityDirty());
}

TEST_F(SaveWithStaleIds, SavesARemovalBesideANetworkThatItSkips) {
    makeStale();
    list({"train"});
    ASSERT_TRUE(settings().removeNetwork("wlan0", "train"));
    network("work")->setPriority(5);
    EXPECT_THAT(saveGiving(0), ElementsAre(LIST_NETWORKS, SAVE, REREAD));
    EXPECT_TRUE(network("work")->getPriorityDirty());
    EXPECT_THAT(saveGiving(0), ElementsAre(LIST_NETWORKS)) << "the removal is saved";
}

// SAVE-12
TEST_F(SaveWithStaleIds, FailsAndWritesNothingWhenTheSupplicantDoesNotAnswer) {
    makeStale();
    LoadedSettings::list("", 255);
    network("train")->setPriority(5);
    EXPECT_THAT(saveGiving(0), ElementsAre(LIST_NETWORKS));
    EXPECT_TRUE(network("train")->getPriorityDirty());
    EXPECT_EQ(SaveSignals::count, 1) << "that of the save before";
}

TEST_F(SaveWithStaleIds, AsksForThemAfterAnAdditionToo) {
    load({"home"});
    add("work", "4");
    network("work")->setPriority(5);
    EXPECT_THAT(saveGiving(1), ElementsAre(priority("4", "5"), SAVE, REREAD)) << "not stale yet";
    list({"home", "work"});
    network("work")->setPriority(6);
    EXPECT_THAT(saveGiving(1), ElementsAre(LIST_NETWORKS, priority("1", "6"), SAVE, REREAD));
}

TEST_F(SaveWithStaleIds, KeepsIdsWhoseListWasValid) {
    load({"home"});
    for (const unsigned int value : {5U, 6U}) {
        network("home")->setPriority(value);
        EXPECT_THAT(saveGiving(1), ElementsAre(priority("0", std::to_string(value)), SAVE, REREAD));
    }
}

TEST_F(SaveWithStaleIds, KeepsIdsWhenTheConfigurationWasNotReadAgain) {
    load({"home", "work"});
    ASSERT_TRUE(settings().removeNetwork("wlan0", "home"));
    answerTo({"-iwlan0", "save_config"}, "FAIL\n");
    EXPECT_THAT(saveGiving(0), ElementsAre(SAVE));
    network("work")->setPriority(5);
    EXPECT_THAT(saveGiving(0), ElementsAre(priority("1", "5"), SAVE));
}

TEST_F(SaveWithStaleIds, LeavesThemStaleWhenItWritesNoField) {
    makeStale();
    saveGiving(1);
    EXPECT_TRUE(settings().connectNetwork("wlan0", "train"));
    EXPECT_THAT(commands(), ElementsAre(LIST_NETWORKS, "-iwlan0 select 1"));
}

TEST_F(SaveWithStaleIds, FindsANetworkThatWasRenamedSince) {
    makeStale();
    network("train")->setSsid("tram");
    EXPECT_THAT(saveGiving(1),
                ElementsAre(LIST_NETWORKS, R"(-iwlan0 set_network 1 ssid "tram")", SAVE, REREAD));
}

// Its memory may be that of the next one.
TEST_F(SaveWithStaleIds, ForgetsTheSsidOfANetworkThatIsRemoved) {
    makeStale();
    ASSERT_TRUE(settings().removeNetwork("wlan0", "train"));
    saveGiving(1);
    add("bus", "1");
    list({"work", "bus"});
    EXPECT_TRUE(settings().connectNetwork("wlan0", "bus"));
    EXPECT_EQ(commands().back(), "-iwlan0 select 1");
}

} // namespace
