#include "supplicant/Arguments.h"

#include "supplicant/ChildProcess.h"

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

TEST(InterfaceOption, KnowsThatABareOptionNamesNothing) {
    EXPECT_TRUE(InterfaceOption("").isValid());
    EXPECT_FALSE(InterfaceOption("").namesInterface());
    EXPECT_TRUE(InterfaceOption("w").namesInterface());
    EXPECT_FALSE(InterfaceOption("fourteen-chars").namesInterface());
}

TEST(NetworkIdArgument, PrintsEveryId) {
    for (unsigned int id = 0; id <= 255; ++id)
        EXPECT_EQ(NetworkIdArgument(static_cast<unsigned char>(id)).text(), std::to_string(id));
}

std::vector<std::string> vectorOf(const char* interfaceArg, const char* command, const char* arg1,
                                  const char* arg2, const char* arg3) {
    const ArgumentVector arguments("path", interfaceArg, command, arg1, arg2, arg3);
    std::vector<std::string> entries;
    for (const char* const* entry = arguments.get(); *entry; ++entry)
        entries.emplace_back(*entry);
    return entries;
}

using Entries = std::vector<std::string>;

// CMD-7
TEST(ArgumentVector, DropsArgumentsByItsUnevenRules) {
    EXPECT_EQ(vectorOf("-i", "c", "1", "2", "3"), (Entries{"path", "-i", "c", "1", "2", "3"}));
    EXPECT_EQ(vectorOf(nullptr, "c", "1", "2", "3"), (Entries{"path", "c", "1", "2", "3"}));
    EXPECT_EQ(vectorOf("-i", nullptr, "1", "2", "3"), (Entries{"path", "-i"}));
    EXPECT_EQ(vectorOf("-i", "c", nullptr, "2", "3"), (Entries{"path", "-i", "c"}));
    EXPECT_EQ(vectorOf("-i", "c", "1", nullptr, "3"), (Entries{"path", "-i", "c", "1", "3"}));
    EXPECT_EQ(vectorOf("-i", "c", "1", "2", nullptr), (Entries{"path", "-i", "c", "1", "2"}));
    EXPECT_EQ(vectorOf(nullptr, nullptr, nullptr, nullptr, nullptr), (Entries{"path"}));
}

} // namespace
