// When the configuration is saved and read again, and the result of a save.

#include "SaveSettings.h"

using namespace test;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

const Arguments SAVE_COMMAND{"-iwlan0", "save_config"};
const Arguments ADD_COMMAND{"-iwlan0", "add_network"};

// SAVE-1
TEST_F(SaveSettings, RunsNothingWhenNothingHasChanged) {
    load({"home", "work"});
    EXPECT_THAT(saveGiving(1), IsEmpty());
    EXPECT_EQ(SaveSignals::count, 0);
}

TEST_F(SaveSettings, WritesSavesReadsAgainAndSignals) {
    load({"home", "work"});
    network("home")->setPriority(5);
    EXPECT_THAT(saveGiving(1), ElementsAre(priority("0", "5"), SAVE, REREAD));
    EXPECT_EQ(SaveSignals::count, 1);
    EXPECT_THAT(saveGiving(1), IsEmpty()) << "once";
    EXPECT_EQ(SaveSignals::count, 1);
}

// SAVE-14
TEST_F(SaveSettings, WritesWithoutASaveAndOnce) {
    load({"home", "work"});
    network("home")->setPriority(5);
    const auto write = [] { EXPECT_EQ(settings().writeNetworkSettings(nullptr), 1); };
    EXPECT_THAT(commandsOf(write), ElementsAre(priority("0", "5")));
    EXPECT_EQ(SaveSignals::count, 0);
    EXPECT_THAT(commandsOf(write), IsEmpty());
    EXPECT_THAT(saveGiving(1), IsEmpty()) << "nothing is dirty";
}

// SAVE-14
TEST_F(SaveSettings, WritesNothingWhereIdsCannotBeConfirmed) {
    load({"home", "work"});
    EXPECT_TRUE(settings().removeNetwork("wlan0", "work"));
    saveGiving(1);
    network("home")->setPriority(5);
    answerTo({"-iwlan0", "list_networks"}, "FAIL\n");
    EXPECT_THAT(commandsOf([] { EXPECT_EQ(settings().writeNetworkSettings(nullptr), 0); }),
                ElementsAre("-iwlan0 list_networks"));
    EXPECT_TRUE(network("home")->getPriorityDirty());
}

TEST_F(SaveSettings, WritesTheNetworkAddedLastFirst) {
    load({"home", "work", "train"});
    network("home")->setPriority(5);
    network("home")->setSsidBroadcasted(true);
    network("train")->setPriority(7);
    EXPECT_THAT(saveGiving(1), ElementsAre(priority("2", "7"), "-iwlan0 set_network 0 scan_ssid 0",
                                           priority("0", "5"), SAVE, REREAD));
}

// NET-8
TEST_F(SaveSettings, SkipsANetworkWhoseAnonymousIdentityAloneHasChanged) {
    load({"home"});
    network("home")->setEAPAnonymousIdentity("anonymous");
    EXPECT_THAT(saveGiving(1), IsEmpty());
    EXPECT_TRUE(network("home")->getEAPAnonymousIdentityDirty());
    network("home")->setPriority(5);
    EXPECT_THAT(saveGiving(1),
                ElementsAre(priority("0", "5"),
                            R"(-iwlan0 set_network 0 anonymous_identity "anonymous")", SAVE,
                            REREAD));
    EXPECT_FALSE(network("home")->getEAPAnonymousIdentityDirty());
}

// Such a network counts as written each time.
// SAVE-6
TEST_F(SaveSettings, SavesAgainWhileAFieldStaysDirtyThatCannotBeWritten) {
    load({"home"});
    network("home")->setChannel(11);
    EXPECT_THAT(saveGiving(1), ElementsAre(SAVE, REREAD));
    EXPECT_THAT(saveGiving(1), ElementsAre(SAVE, REREAD));
}

TEST_F(SaveSettings, SavesAfterARemovalAlsoOfTheOnlyNetwork) {
    load({"home", "work"});
    list({"work"}); // after the first removal
    for (const char* const ssid : {"home", "work"}) {
        ASSERT_TRUE(settings().removeNetwork("wlan0", ssid));
        EXPECT_THAT(saveGiving(1), ElementsAre(SAVE, REREAD));
        EXPECT_THAT(saveGiving(1), IsEmpty()) << "valid again";
    }
    EXPECT_EQ(SaveSignals::count, 2);
}

TEST_F(SaveSettings, SavesAfterAnAddition) {
    load({});
    answerTo(ADD_COMMAND, "4\n");
    ASSERT_TRUE(settings().addNetwork("wlan0", "home"));
    network("home")->cleanDirtyFields();
    EXPECT_THAT(saveGiving(1), ElementsAre(SAVE, REREAD));
    EXPECT_THAT(saveGiving(1), IsEmpty()) << "valid again";
}

// SAVE-2
TEST_F(SaveSettings, SucceedsWhenFieldsAreRefused) {
    load({"home"});
    answerTo({"-iwlan0", "set_network", "0", "priority", "5"}, "FAIL\n");
    network("home")->setPriority(5);
    EXPECT_THAT(saveGiving(1), ElementsAre(priority("0", "5"), SAVE, REREAD));
    EXPECT_FALSE(network("home")->getNetworkDirty());
}

TEST_F(SaveSettings, ReadsNothingAgainAndSendsNoSignalWhenItFails) {
    load({"home"});
    answerTo(SAVE_COMMAND, "FAIL\n");
    network("home")->setPriority(5);
    EXPECT_THAT(saveGiving(0), ElementsAre(priority("0", "5"), SAVE));
    EXPECT_EQ(SaveSignals::count, 0);
    EXPECT_FALSE(network("home")->getNetworkDirty()) << "the field is written all the same";
    EXPECT_THAT(saveGiving(1), IsEmpty()) << "the list was valid before";
}

TEST_F(SaveSettings, LeavesAnInvalidListInvalidWhenItFails) {
    load({"home"});
    ASSERT_TRUE(settings().removeNetwork("wlan0", "home"));
    answerTo(SAVE_COMMAND, "FAIL\n");
    EXPECT_THAT(saveGiving(0), ElementsAre(SAVE));
    acceptAll();
    EXPECT_THAT(saveGiving(1), ElementsAre(SAVE, REREAD)) << "tried again";
    EXPECT_THAT(saveGiving(1), IsEmpty());
}

// SAVE-4
TEST_F(SaveSettings, SucceedsWhenReadingAgainIsRefused) {
    load({"home", "work"});
    ASSERT_TRUE(settings().removeNetwork("wlan0", "home"));
    answerTo({"-iwlan0", "reconfigure"}, "FAIL\n");
    EXPECT_THAT(saveGiving(1), ElementsAre(SAVE, REREAD));
    EXPECT_EQ(SaveSignals::count, 1);
    EXPECT_THAT(saveGiving(1), IsEmpty()) << "valid again";
}

TEST_F(SaveSettings, RunsWithoutAWatchdog) {
    SaveSignals::canInitialize = false;
    load({"home"});
    network("home")->setPriority(5);
    EXPECT_THAT(saveGiving(1), ElementsAre(priority("0", "5"), SAVE, REREAD));
    EXPECT_EQ(SaveSignals::count, 0);
}

// SAVE-1
TEST_F(SaveSettings, RunsNothingAndSucceedsAfterALoadThatFailed) {
    fail();
    EXPECT_THAT(saveGiving(1), IsEmpty());
    EXPECT_EQ(SaveSignals::count, 0);
}

} // namespace
