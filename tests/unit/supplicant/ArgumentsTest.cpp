#include "supplicant/Arguments.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

using namespace platwifi;

namespace {

TEST(InterfaceOption, TakesNamesOfUpTo13Characters) {
    EXPECT_STREQ(InterfaceOption("wlan0").text(), "-iwlan0");
    EXPECT_STREQ(InterfaceOption("thirteenchars").text(), "-ithirteenchars");
    EXPECT_TRUE(InterfaceOption("thirteenchars").isValid());
    EXPECT_FALSE(InterfaceOption("fourteen-chars").isValid());
    EXPECT_FALSE(InterfaceOption(std::string(4000, 'w').c_str()).isValid());
    EXPECT_FALSE(InterfaceOption(nullptr).isValid());
}

TEST(InterfaceOption, WithAnEmptyNameIsValidButNamesNoInterface) {
    EXPECT_TRUE(InterfaceOption("").isValid());
    EXPECT_FALSE(InterfaceOption("").namesInterface());
    EXPECT_TRUE(InterfaceOption("w").namesInterface());
    EXPECT_FALSE(InterfaceOption("fourteen-chars").namesInterface());
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

Entries vectorOf(const char* interfaceArg, const char* command, const char* arg1, const char* arg2,
                 const char* arg3) {
    return entriesOf(argumentsOf("path", interfaceArg, command, arg1, arg2, arg3));
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

TEST(ArgumentList, OfLaunchProcessDropsArgumentsByTheRulesForNulls) {
    EXPECT_EQ(vectorOf("-i", "c", "1", "2", "3"), (Entries{"path", "-i", "c", "1", "2", "3"}));
    EXPECT_EQ(vectorOf(nullptr, "c", "1", "2", "3"), (Entries{"path", "c", "1", "2", "3"}));
    EXPECT_EQ(vectorOf("-i", nullptr, "1", "2", "3"), (Entries{"path", "-i"}));
    EXPECT_EQ(vectorOf("-i", "c", nullptr, "2", "3"), (Entries{"path", "-i", "c"}));
    EXPECT_EQ(vectorOf("-i", "c", "1", nullptr, "3"), (Entries{"path", "-i", "c", "1", "3"}));
    EXPECT_EQ(vectorOf("-i", "c", "1", "2", nullptr), (Entries{"path", "-i", "c", "1", "2"}));
    EXPECT_EQ(vectorOf(nullptr, nullptr, nullptr, nullptr, nullptr), (Entries{"path"}));
}

} // namespace
