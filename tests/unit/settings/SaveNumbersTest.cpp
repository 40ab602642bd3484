// Numbers that are written in decimal.

#include "SaveFields.h"

using namespace test;
using testing::ElementsAre;
using testing::IsEmpty;
using N = WifiNetwork;

namespace {

TEST_F(SaveFields, WritesWhetherTheNetworkIsToBeAskedByName) {
    EXPECT_THAT(saveAfter([](WifiNetwork& edited) { edited.setSsidBroadcasted(true); }),
                ElementsAre(setNetwork("scan_ssid", "0")));
    EXPECT_THAT(dirty(), IsEmpty());
    EXPECT_THAT(saveAfter([](WifiNetwork& edited) { edited.setSsidBroadcasted(false); }),
                ElementsAre(setNetwork("scan_ssid", "1")));
    EXPECT_THAT(dirty(), IsEmpty());
}

struct Number {
    const char* flag;
    const char* key;
    void (*set)(WifiNetwork&, unsigned int);
};

const Number PRIORITY = {"priority", "priority",
                         [](WifiNetwork& n, unsigned int value) { n.setPriority(value); }};
const Number MODE = {"networkMode", "mode", [](WifiNetwork& n, unsigned int value) {
                         n.setNetworkMode(static_cast<unsigned char>(value));
                     }};
const Number WEP_INDEX = {"wepIndex", "wep_tx_keyidx",
                          [](WifiNetwork& n, unsigned int value) { n.setWepIndex(value); }};

// SAVE-11
TEST_F(SaveFields, WritesNumbersInDecimal) {
    const struct {
        const Number& field;
        unsigned int number;
        const char* text;
    } rows[] = {
        {PRIORITY, 5, "5"},
        {PRIORITY, 0, "0"},
        {PRIORITY, 2147483647U, "2147483647"},
        {PRIORITY, 2147483648U, "-2147483648"},
        {PRIORITY, 4294967295U, "-1"},
        {MODE, 1, "1"},
        {MODE, 0, "0"},
        {MODE, 2, "2"},
        {MODE, 255, "255"},
        {WEP_INDEX, 1, "1"},
        {WEP_INDEX, 0, "0"},
        {WEP_INDEX, 2, "2"},
        {WEP_INDEX, 3, "3"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(std::string(row.field.key) + " " + row.text);
        const auto edit = [&](WifiNetwork& edited) {
            row.field.set(edited, row.number);
            EXPECT_THAT(dirty(), ElementsAre(row.field.flag));
        };
        EXPECT_THAT(saveAfter(edit), ElementsAre(setNetwork(row.field.key, row.text)));
        EXPECT_THAT(dirty(), IsEmpty());
    }
}

TEST_F(SaveFields, WritesNoNumberThatIsClean) {
    network.setSsidBroadcasted(true);
    for (const Number& number : {PRIORITY, MODE, WEP_INDEX})
        number.set(network, 1);
    EXPECT_THAT(saveAfter([](WifiNetwork&) {}), IsEmpty());
}

// SAVE-6
TEST_F(SaveFields, LeavesTheChannelAlone) {
    EXPECT_THAT(saveAfter([](WifiNetwork& edited) { edited.setChannel(11); }), IsEmpty());
    EXPECT_THAT(dirty(), ElementsAre("channel"));
}

} // namespace
