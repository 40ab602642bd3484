// Fields are for the first adapter; each adapter has a configuration to save.

#include "SaveSettings.h"

#include "supplicant/ReplyLines.h"

using namespace test;
using testing::ElementsAre;

// No load leaves networks without adapters, or a gap among these; saving does not rely on it. The names
// of private members may be told to an explicit instantiation.
using AdapterNames = std::unique_ptr<platwifi::ReplyLines> WifiHostSettings::*;
AdapterNames adapterNames();

template <AdapterNames Member>
struct Opened {
    friend AdapterNames adapterNames() { return Member; }
};
template struct Opened<&WifiHostSettings::adapterNames>;

namespace {

Arguments priority(const std::string& id, const std::string& value) {
    return {"/proc/boot/wpa_cli", "-iwlan0", "set_network", id, "priority", value};
}

class SaveTwoAdapters : public SaveSettings {
protected:
    static Arguments wlan1(const Arguments& command) { return call("wlan1", command); }

    // Answers of the two to save_config; all else is accepted.
    void script(const std::string& first, const std::string& second) {
        load({"home"}, "wlan0\nwlan1\n");
        standIn.reset();
        standIn.on({"-iwlan0", "save_config"}).prints(first);
        standIn.on({"-iwlan1", "save_config"}).prints(second);
        standIn.on({"*"}).prints("OK\n");
        network("home").setPriority(5);
    }
};

// SAVE-3
TEST_F(SaveTwoAdapters, WritesToTheFirstSavesAndReadsBothAgain) {
    script("OK\n", "OK\n");
    EXPECT_THAT(saveGiving(1), ElementsAre(priority("0", "5"), SAVE, wlan1({"save_config"}), REREAD,
                                           wlan1({"reconfigure"})));
    EXPECT_EQ(FakeWatchdog::signals, 1);
}

// SAVE-2
TEST_F(SaveTwoAdapters, SucceedsWhenTheSecondIsSaved) {
    script("FAIL\n", "OK\n");
    EXPECT_THAT(saveGiving(1), ElementsAre(priority("0", "5"), SAVE, wlan1({"save_config"}), REREAD,
                                           wlan1({"reconfigure"})));
    EXPECT_EQ(FakeWatchdog::signals, 1);
}

TEST_F(SaveTwoAdapters, ReadsTheSecondAgainWhenTheFirstRefuses) {
    script("OK\n", "OK\n");
    standIn.reset();
    standIn.on({"-iwlan0", "reconfigure"}).prints("FAIL\n").exits(1);
    standIn.on({"*"}).prints("OK\n");
    EXPECT_THAT(saveGiving(1), ElementsAre(priority("0", "5"), SAVE, wlan1({"save_config"}), REREAD,
                                           wlan1({"reconfigure"})));
    EXPECT_EQ(FakeWatchdog::signals, 1);
}

// SAVE-2
TEST_F(SaveTwoAdapters, FailsWhenTheSecondIsNotSaved) {
    script("OK\n", "FAIL\n");
    EXPECT_THAT(saveGiving(0), ElementsAre(priority("0", "5"), SAVE, wlan1({"save_config"})));
    EXPECT_EQ(FakeWatchdog::signals, 0);
}

TEST_F(SaveSettings, WithoutAdaptersFails) {
    load({"home"});
    (settings->*adapterNames())->count = 0;
    settings->removeNetwork("wlan0", "home");
    EXPECT_EQ(save(), 0);
    (settings->*adapterNames()).reset();
    EXPECT_EQ(save(), 0);
    EXPECT_THAT(standIn.calls(), ElementsAre(wlan0({"remove_network", "0"})));
}

TEST_F(SaveTwoAdapters, LeavesOneWithoutANameOut) {
    script("OK\n", "OK\n");
    char*& first = (settings->*adapterNames())->data()[0];
    delete[] first;
    first = nullptr;
    EXPECT_THAT(saveGiving(1), ElementsAre(wlan1({"save_config"}), wlan1({"reconfigure"})));
    EXPECT_FALSE(network("home").getNetworkDirty());
}

} // namespace
