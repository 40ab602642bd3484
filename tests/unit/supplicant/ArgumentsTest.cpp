#include "supplicant/Arguments.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

using namespace platwifi;

namespace {

TEST(InterfaceOption, TakesNamesOfUpTo13CharactersAndNamesNoInterfaceForAnEmptyOne) {
    EXPECT_STREQ(InterfaceOption("wlan0").text(), "-iwlan0");
    EXPECT_STREQ(InterfaceOption("thirteenchars").text(), "-ithirteenchars");
    const std::string tooLong(4000, 'w');
    const struct {
        const char* name;
        bool isValid;
        bool namesInterface;
    } rows[] = {
        {"w", true, true},
        {"thirteenchars", true, true},
        {"fourteen-chars", false, false},
        {tooLong.c_str(), false, false},
        {"", true, false},
        {nullptr, false, false},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(InterfaceOption(row.name).isValid(), row.isValid);
        EXPECT_EQ(InterfaceOption(row.name).namesInterface(), row.namesInterface);
    }
}

TEST(NetworkIdArgument, PrintsEveryId) {
    for (unsigned int id = 0; id <= 255; ++id)
        EXPECT_EQ(NetworkIdArgument(static_cast<unsigned char>(id)).text(), std::to_string(id));
}

using Entries = std::vector<std::string>;

Entries entriesOf(const ArgumentList& arguments) {
    Entries entries;
    for (const char* const* entry = arguments.get(); *entry; ++entry)
        entries.emplace_back(*entry);
    return entries;
}

// CMD-7
TEST(ArgumentList, KeepsItsEntriesInOrderWithoutNulls) {
    ArgumentList arguments{"path", nullptr, "-i"};
    arguments.add("c").add(nullptr).add(ArgumentList{"1", "2"});
    EXPECT_EQ(entriesOf(arguments), (Entries{"path", "-i", "c", "1", "2"}));
    EXPECT_STREQ(arguments.program(), "path");
    EXPECT_TRUE(arguments.isComplete());
    EXPECT_EQ(ArgumentList{}.program(), nullptr);
}

TEST(ArgumentList, IsIncompleteAboveItsCapacity) {
    ArgumentList arguments{"1", "2", "3", "4", "5", "6"};
    EXPECT_TRUE(arguments.isComplete());
    arguments.add("7");
    EXPECT_FALSE(arguments.isComplete());
    EXPECT_EQ(entriesOf(arguments), (Entries{"1", "2", "3", "4", "5", "6"}));
    EXPECT_FALSE(ArgumentList{}.add(arguments).isComplete());
    EXPECT_FALSE((ArgumentList{"1", "2", "3"}.add(ArgumentList{"4", "5", "6", "7"}).isComplete()));
}

} // namespace
