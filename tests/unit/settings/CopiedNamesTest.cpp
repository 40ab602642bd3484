// The copies of SSIDs and adapter names that callers get.

#include "LoadedSettings.h"

#include "support/Checkpoint.h"
#include "support/Doing.h"
#include "support/Lines.h"

using platwifi::ReplyLines;
using test::toStrings;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

class CopiedNames : public test::SettingsTest {
protected:
    CopiedNames() {
        adapters = "wlan0\nwlan1\nwlan2\n";
        load(test::LoadedHost::linesOf({"home", "work", "cafe"}));
    }

    static bool copySsids(ReplyLines& out, unsigned char capacity = 32) {
        out.count = 77; // to be set anew
        return settings().getNetworkDatabaseSsids("wlan0", out.data(), capacity, &out.count);
    }

    static bool copyAdapters(ReplyLines& out, unsigned char capacity = 2) {
        out.count = 77;
        return settings().getWifiAdapters(out.data(), capacity, &out.count);
    }

    ReplyLines names{32};
};

TEST_F(CopiedNames, AreTheSsidsOfAllNetworksTheLastOneFirst) {
    EXPECT_TRUE(copySsids(names));
    EXPECT_THAT(toStrings(names), ElementsAre("cafe", "work", "home"));
    EXPECT_THAT(commands(), IsEmpty());
}

TEST_F(CopiedNames, BelongToTheCaller) {
    ReplyLines others(2);
    EXPECT_TRUE(copySsids(names));
    EXPECT_TRUE(copyAdapters(others));
    names.data()[0][0] = 'X';
    EXPECT_NE(network("cafe"), nullptr);
    WifiHostSettings::unload();
    EXPECT_THAT(toStrings(names), ElementsAre("Xafe", "work", "home"));
    EXPECT_THAT(toStrings(others), ElementsAre("wlan0", "wlan1"));
}

TEST_F(CopiedNames, AreAsManySsidsAsThereIsRoomFor) {
    load("");
    answer("1\n");
    for (int i = 0; i <= 32; ++i)
        EXPECT_TRUE(settings().addNetwork("wlan0", ("n" + std::to_string(i)).c_str()));
    struct Row {
        unsigned char capacity;
        unsigned char count;
    };
    for (const Row row : {Row{0, 0}, Row{1, 1}, Row{32, 32}, Row{33, 33}, Row{255, 33}}) {
        ReplyLines copies(255);
        EXPECT_TRUE(copySsids(copies, row.capacity));
        EXPECT_EQ(copies.count, row.count);
        EXPECT_EQ(copies.data()[row.count], nullptr) << "beyond them nothing is touched";
        EXPECT_STREQ(copies.data()[0], row.count > 0 ? "n32" : nullptr);
    }
}

TEST_F(CopiedNames, AreNoneWhenNothingWasLoaded) {
    load("");
    EXPECT_TRUE(copySsids(names));
    EXPECT_EQ(names.count, 0);
    fail();
    EXPECT_TRUE(copySsids(names));
    EXPECT_EQ(names.count, 0);
    EXPECT_TRUE(copyAdapters(names));
    EXPECT_EQ(names.count, 0);
    EXPECT_EQ(names.data()[0], nullptr);
}

TEST_F(CopiedNames, NeedAPlace) {
    names.count = 77;
    EXPECT_FALSE(settings().getNetworkDatabaseSsids("wlan0", nullptr, 32, &names.count));
    EXPECT_FALSE(settings().getWifiAdapters(nullptr, 2, &names.count));
    EXPECT_EQ(names.count, 77);
    EXPECT_FALSE(settings().getNetworkDatabaseSsids("wlan0", names.data(), 32, nullptr));
    EXPECT_FALSE(settings().getWifiAdapters(names.data(), 2, nullptr));
    EXPECT_EQ(names.data()[0], nullptr);
    EXPECT_TRUE(settings().getNetworkDatabaseSsids(nullptr, names.data(), 32, &names.count));
    EXPECT_EQ(names.count, 3);
}

// OP-8
TEST_F(CopiedNames, AreTwoAdaptersAtMostWhateverTheRoom) {
    for (const int capacity : {0, 1, 2, 32, 255}) {
        ReplyLines copies(3);
        EXPECT_TRUE(copyAdapters(copies, static_cast<unsigned char>(capacity)));
        EXPECT_THAT(toStrings(copies), ElementsAre("wlan0", "wlan1"));
        EXPECT_EQ(copies.data()[2], nullptr);
    }
    EXPECT_THAT(commands(), IsEmpty());
}

// The adapters are available before a reload has ended, which holds the lock.
// OP-8
TEST_F(CopiedNames, AreTheAdaptersThatAReloadHasReadSoFar) {
    test::Checkpoint beginning("/tmp/beginning");
    test::Checkpoint middle("/tmp/middle");
    standIn.on({"interface"}).pausesAt(beginning.path()).prints("x\nx\nwlan7\n");
    standIn.on({"-iwlan7", "list_networks"}).pausesAt(middle.path()).prints("header\n");
    answer("");
    const test::Doing reloading([] { settings().refreshAllSettings(); });
    beginning.awaitArrival();
    EXPECT_TRUE(copyAdapters(names));
    EXPECT_EQ(names.count, 0);
    beginning.letGo();
    middle.awaitArrival();
    EXPECT_TRUE(copyAdapters(names));
    EXPECT_THAT(toStrings(names), ElementsAre("wlan7"));
    middle.letGo();
}

} // namespace
