// What names the network: SSID and BSSID.

#include "SaveFields.h"

using namespace test;
using testing::ElementsAre;
using testing::IsEmpty;
using N = WifiNetwork;

namespace {

TEST_F(SaveFields, WritesTheSsid) {
    EXPECT_THAT(saveAfter([](WifiNetwork& edited) { edited.setSsid("home"); }),
                ElementsAre(setNetwork("ssid", inQuotes("home"))));
    EXPECT_THAT(dirty(), IsEmpty());
}

TEST_F(SaveFields, WritesAnEmptySsid) {
    network.setSsid("home");
    EXPECT_THAT(saveAfter([](WifiNetwork& edited) { edited.setSsid(""); }),
                ElementsAre(setNetwork("ssid", inQuotes(""))));
    EXPECT_THAT(dirty(), IsEmpty());
}

// SAVE-6
TEST_F(SaveFields, LeavesAnUnsetSsidDirty) {
    network.setSsid("home");
    EXPECT_THAT(saveAfter([](WifiNetwork& edited) { edited.setSsid(nullptr); }), IsEmpty());
    EXPECT_THAT(dirty(), ElementsAre("ssid"));
    EXPECT_THAT(save(), IsEmpty()) << "nor the next time";
    EXPECT_THAT(dirty(), ElementsAre("ssid"));
}

TEST_F(SaveFields, WritesNoSsidAndNoBssidThatIsClean) {
    network.setSsid("home");
    network.setBssid("02:00:00:00:01:00");
    EXPECT_THAT(saveAfter([](WifiNetwork&) {}), IsEmpty());
}

// SAVE-10
TEST_F(SaveFields, WritesTheBssidAndTellsTheSupplicantsOwnCommand) {
    const struct {
        const char* bssid;
        const char* sent;
    } rows[] = {
        {"02:00:00:00:01:00", "02:00:00:00:01:00"},
        {"any", "00:00:00:00:00:00"},
        {"00:00:00:00:00:00", "00:00:00:00:00:00"},
        {nullptr, "00:00:00:00:00:00"},
        {"ANY", "ANY"},
        {"", ""}, // set, though to nothing
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.bssid ? row.bssid : "(null)");
        network.setBssid("02:00:00:00:02:00");
        const auto edit = [&](WifiNetwork& edited) { EXPECT_TRUE(edited.setBssid(row.bssid)); };
        EXPECT_THAT(saveAfter(edit),
                    ElementsAre(setNetwork("bssid", row.sent), bssidCommand(row.sent)));
        EXPECT_THAT(dirty(), IsEmpty());
    }
}

} // namespace
