#include "settings/WifiHostSettings.h"

#include "LoadedSettings.h"
#include "supplicant/ReplyLines.h"

#include "support/Checkpoint.h"
#include "support/Lines.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <thread>

using platwifi::ReplyLines;
using test::toStrings;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

const std::string THREE = "0\thome\tany\t\n1\twork\tany\t\n2\tcafe\tany\t\n";

class CopiedSsids : public testing::Test {
protected:
    static bool copy(WifiHostSettings& settings, ReplyLines& ssids, unsigned char capacity) {
        ssids.count = 77; // to be set anew
        return settings.getNetworkDatabaseSsids("wlan0", ssids.data(), capacity, &ssids.count);
    }

    test::LoadedSettings loaded;
};

TEST_F(CopiedSsids, AreThoseOfAllNetworksTheLastOneFirst) {
    WifiHostSettings& settings = loaded.load(THREE);
    ReplyLines ssids(32);
    EXPECT_TRUE(copy(settings, ssids, 32));
    EXPECT_THAT(toStrings(ssids), ElementsAre("cafe", "work", "home"));
    EXPECT_THAT(loaded.commands(), IsEmpty());
}

TEST_F(CopiedSsids, AreTheCallersOwn) {
    WifiHostSettings& settings = loaded.load(THREE);
    ReplyLines ssids(32);
    EXPECT_TRUE(copy(settings, ssids, 32));
    ssids.data()[0][0] = 'X';
    EXPECT_NE(settings.getNetwork("wlan0", "cafe"), nullptr);
    WifiHostSettings::unload();
    EXPECT_STREQ(ssids.data()[2], "home");
}

TEST_F(CopiedSsids, AreAsManyAsThereIsRoomFor) {
    WifiHostSettings& settings = loaded.load("");
    loaded.answer("1\n");
    for (int i = 0; i <= 32; ++i)
        EXPECT_TRUE(settings.addNetwork("wlan0", ("n" + std::to_string(i)).c_str()));
    struct Row {
        unsigned char capacity;
        unsigned char count;
    };
    for (const Row row : {Row{0, 0}, Row{1, 1}, Row{32, 32}, Row{33, 33}, Row{255, 33}}) {
        ReplyLines ssids(255);
        EXPECT_TRUE(copy(settings, ssids, row.capacity));
        EXPECT_EQ(ssids.count, row.count);
        EXPECT_EQ(ssids.data()[row.count], nullptr) << "beyond them nothing is touched";
        EXPECT_STREQ(ssids.data()[0], row.count > 0 ? "n32" : nullptr);
    }
}

TEST_F(CopiedSsids, AreNoneWithoutNetworks) {
    ReplyLines ssids(32);
    EXPECT_TRUE(copy(loaded.load(""), ssids, 32));
    EXPECT_EQ(ssids.count, 0);
    EXPECT_TRUE(copy(loaded.fail(), ssids, 32));
    EXPECT_EQ(ssids.count, 0);
}

TEST_F(CopiedSsids, NeedSomewhereToGo) {
    WifiHostSettings& settings = loaded.load(THREE);
    ReplyLines ssids(32);
    ssids.count = 77;
    EXPECT_FALSE(settings.getNetworkDatabaseSsids("wlan0", nullptr, 32, &ssids.count));
    EXPECT_EQ(ssids.count, 77);
    EXPECT_FALSE(settings.getNetworkDatabaseSsids("wlan0", ssids.data(), 32, nullptr));
    EXPECT_EQ(ssids.data()[0], nullptr);
    ssids.count = 0;
    EXPECT_TRUE(settings.getNetworkDatabaseSsids(nullptr, ssids.data(), 32, &ssids.count));
    EXPECT_EQ(ssids.count, 3);
}

class CopiedAdapters : public testing::Test {
protected:
    static bool copy(const WifiHostSettings& settings, ReplyLines& names, unsigned char capacity) {
        names.count = 77;
        return settings.getWifiAdapters(names.data(), capacity, &names.count);
    }

    test::LoadedSettings loaded;
};

// OP-8
TEST_F(CopiedAdapters, AreTwoAtMostWhateverTheRoom) {
    loaded.adapters = "wlan0\nwlan1\nwlan2\n";
    WifiHostSettings& settings = loaded.load(THREE);
    for (const int capacity : {0, 1, 2, 32, 255}) {
        ReplyLines names(3);
        EXPECT_TRUE(copy(settings, names, static_cast<unsigned char>(capacity)));
        EXPECT_THAT(toStrings(names), ElementsAre("wlan0", "wlan1"));
        EXPECT_EQ(names.data()[2], nullptr);
    }
    EXPECT_THAT(loaded.commands(), IsEmpty());
}

TEST_F(CopiedAdapters, AreTheCallersOwn) {
    const WifiHostSettings& settings = loaded.load(THREE);
    ReplyLines names(2);
    EXPECT_TRUE(copy(settings, names, 2));
    WifiHostSettings::unload();
    EXPECT_THAT(toStrings(names), ElementsAre("wlan0"));
}

TEST_F(CopiedAdapters, AreNoneWhenNothingWasLoaded) {
    ReplyLines names(2);
    EXPECT_TRUE(copy(loaded.fail(), names, 2));
    EXPECT_EQ(names.count, 0);
    EXPECT_EQ(names.data()[0], nullptr);
}

TEST_F(CopiedAdapters, NeedSomewhereToGo) {
    const WifiHostSettings& settings = loaded.load(THREE);
    ReplyLines names(2);
    names.count = 77;
    EXPECT_FALSE(settings.getWifiAdapters(nullptr, 2, &names.count));
    EXPECT_EQ(names.count, 77);
    EXPECT_FALSE(settings.getWifiAdapters(names.data(), 2, nullptr));
    EXPECT_EQ(names.data()[0], nullptr);
    names.count = 0;
}

// The client stands still while everything is loaded anew, with the settings locked.
// OP-8
TEST_F(CopiedAdapters, AreToldWhileAReloadGoesOn) {
    WifiHostSettings& settings = loaded.load(THREE);
    test::Checkpoint checkpoint("/tmp/reload");
    loaded.standIn.on({"interface"}).prints("x\nx\nwlan7\n");
    loaded.standIn.on({"-iwlan7", "list_networks"}).pausesAt(checkpoint.path()).prints("header\n");
    loaded.standIn.on({"*"}).prints("");
    std::thread reload([&] { settings.refreshAllSettings(); });
    checkpoint.awaitArrival();
    ReplyLines names(2);
    EXPECT_TRUE(copy(settings, names, 2));
    EXPECT_THAT(toStrings(names), ElementsAre("wlan7"));
    checkpoint.letGo();
    reload.join();
}

} // namespace
