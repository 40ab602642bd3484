// When the configuration is saved and read again, and what that gives.

#include "SaveSettings.h"

using namespace test;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

Arguments priority(const std::string& id, const std::string& value) {
    return {"/proc/boot/wpa_cli", "-iwlan0", "set_network", id, "priority", value};
}

// SAVE-1
TEST_F(SaveSettings, RunsNothingWhenNothingHasChanged) {
    load({"home", "work"});
    EXPECT_THAT(saveGiving(1), IsEmpty());
    EXPECT_EQ(FakeWatchdog::signals, 0);
}

TEST_F(SaveSettings, WritesSavesReadsAgainAndSignals) {
    load({"home", "work"});
    network("home").setPriority(5);
    EXPECT_THAT(saveGiving(1), ElementsAre(priority("0", "5"), SAVE, REREAD));
    EXPECT_EQ(FakeWatchdog::signals, 1);
    EXPECT_THAT(saveGiving(1), IsEmpty()) << "once";
    EXPECT_EQ(FakeWatchdog::signals, 1);
}

TEST_F(SaveSettings, WritesTheNetworkAddedLastFirst) {
    load({"home", "work", "train"});
    network("home").setPriority(5);
    network("home").setSsidBroadcasted(true);
    network("train").setPriority(7);
    EXPECT_THAT(saveGiving(1),
                ElementsAre(priority("2", "7"), wlan0({"set_network", "0", "scan_ssid", "0"}),
                            priority("0", "5"), SAVE, REREAD));
}

// NET-8
TEST_F(SaveSettings, SkipsANetworkWhoseAnonymousIdentityAloneHasChanged) {
    load({"home"});
    network("home").setEAPAnonymousIdentity("nobody");
    EXPECT_THAT(saveGiving(1), IsEmpty());
    EXPECT_TRUE(network("home").getEAPAnonymousIdentityDirty());
    network("home").setPriority(5);
    EXPECT_THAT(saveGiving(1),
                ElementsAre(priority("0", "5"),
                            wlan0({"set_network", "0", "anonymous_identity", R"("nobody")"}), SAVE,
                            REREAD));
    EXPECT_FALSE(network("home").getEAPAnonymousIdentityDirty());
}

// Such a network counts as written each time.
// SAVE-6
TEST_F(SaveSettings, SavesAgainWhileAFieldStaysDirtyThatCannotBeWritten) {
    load({"home"});
    network("home").setChannel(11);
    EXPECT_THAT(saveGiving(1), ElementsAre(SAVE, REREAD));
    EXPECT_THAT(saveGiving(1), ElementsAre(SAVE, REREAD));
}

TEST_F(SaveSettings, SavesAfterARemoval) {
    load({"home", "work"});
    ASSERT_TRUE(settings->removeNetwork("wlan0", "home"));
    EXPECT_THAT(saveGiving(1), ElementsAre(SAVE, REREAD));
    EXPECT_EQ(FakeWatchdog::signals, 1);
    EXPECT_THAT(saveGiving(1), IsEmpty()) << "valid again";
}

TEST_F(SaveSettings, SavesAfterTheRemovalOfTheOnlyNetwork) {
    load({"home"});
    ASSERT_TRUE(settings->removeNetwork("wlan0", "home"));
    EXPECT_THAT(saveGiving(1), ElementsAre(SAVE, REREAD));
    EXPECT_THAT(saveGiving(1), IsEmpty()) << "valid again";
}

TEST_F(SaveSettings, SavesAfterAnAddition) {
    load({});
    standIn.reset();
    standIn.on({"-iwlan0", "add_network"}).prints("4\n");
    standIn.on({"*"}).prints("OK\n");
    ASSERT_TRUE(settings->addNetwork("wlan0", "home"));
    network("home").cleanDirtyFields();
    EXPECT_THAT(saveGiving(1), ElementsAre(SAVE, REREAD));
    EXPECT_THAT(saveGiving(1), IsEmpty()) << "valid again";
}

// SAVE-2
TEST_F(SaveSettings, WhoseFieldsAreRefusedSucceedsAllTheSame) {
    load({"home"});
    standIn.reset();
    standIn.on({"-iwlan0", "set_network", "0", "priority", "5"}).prints("FAIL\n");
    standIn.on({"*"}).prints("OK\n");
    network("home").setPriority(5);
    EXPECT_THAT(saveGiving(1), ElementsAre(priority("0", "5"), SAVE, REREAD));
    EXPECT_FALSE(network("home").getNetworkDirty());
}

TEST_F(SaveSettings, ThatFailsReadsNothingAgainAndSendsNoSignal) {
    load({"home"});
    standIn.reset();
    standIn.on({"-iwlan0", "save_config"}).prints("FAIL\n");
    standIn.on({"*"}).prints("OK\n");
    network("home").setPriority(5);
    EXPECT_THAT(saveGiving(0), ElementsAre(priority("0", "5"), SAVE));
    EXPECT_EQ(FakeWatchdog::signals, 0);
    EXPECT_FALSE(network("home").getNetworkDirty()) << "the field is written all the same";
    EXPECT_THAT(saveGiving(1), IsEmpty()) << "the list was valid before";
}

TEST_F(SaveSettings, ThatFailsLeavesAnInvalidListInvalid) {
    load({"home"});
    ASSERT_TRUE(settings->removeNetwork("wlan0", "home"));
    standIn.reset();
    standIn.on({"-iwlan0", "save_config"}).prints("FAIL\n").then().prints("OK\n");
    standIn.on({"*"}).prints("OK\n");
    EXPECT_THAT(saveGiving(0), ElementsAre(SAVE));
    EXPECT_THAT(saveGiving(1), ElementsAre(SAVE, REREAD)) << "tried again";
    EXPECT_THAT(saveGiving(1), IsEmpty());
}

// SAVE-4
TEST_F(SaveSettings, WhoseReReadingIsRefusedSucceedsAllTheSame) {
    load({"home", "work"});
    ASSERT_TRUE(settings->removeNetwork("wlan0", "home"));
    standIn.reset();
    standIn.on({"-iwlan0", "reconfigure"}).prints("FAIL\n");
    standIn.on({"*"}).prints("OK\n");
    EXPECT_THAT(saveGiving(1), ElementsAre(SAVE, REREAD));
    EXPECT_EQ(FakeWatchdog::signals, 1);
    EXPECT_THAT(saveGiving(1), IsEmpty()) << "valid again";
}

TEST_F(SaveSettings, RunsWithoutAWatchdog) {
    FakeWatchdog::works = false;
    load({"home"});
    network("home").setPriority(5);
    EXPECT_THAT(saveGiving(1), ElementsAre(priority("0", "5"), SAVE, REREAD));
    EXPECT_EQ(FakeWatchdog::signals, 0);
}

// SAVE-1
TEST_F(SaveSettings, WithoutNetworksSucceedsAndRunsNothing) {
    load({}, ""); // no adapter: loading fails
    EXPECT_THAT(saveGiving(1), IsEmpty());
    EXPECT_EQ(FakeWatchdog::signals, 0);
}

} // namespace
