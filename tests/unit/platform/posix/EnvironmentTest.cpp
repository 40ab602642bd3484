#include "platform/Environment.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <unistd.h>

namespace {

constexpr const char* VARIABLE = "PLATFORM_TEST_WORD";
constexpr unsigned int OTHER = 65534;

class Environment : public testing::Test {
protected:
    Environment() { setenv(VARIABLE, "word", 1); }
    ~Environment() override { unsetenv(VARIABLE); }
};

TEST_F(Environment, HasItsVariables) {
    EXPECT_STREQ(platform::environmentValue(VARIABLE), "word");
    EXPECT_EQ(platform::environmentValue("PLATFORM_NO_SUCH_WORD"), nullptr);
}

// A process with other effective ids, as a set-user-ID or set-group-ID program has.
void becomeOther(bool user, bool group) {
    const bool done = (!group || setegid(OTHER) == 0) && (!user || seteuid(OTHER) == 0);
    std::_Exit(done && platform::environmentValue(VARIABLE) == nullptr ? 0 : 1);
}

TEST_F(Environment, HasNoneForAProgramWithOtherRightsThanItsCaller) {
    if (geteuid() != 0)
        GTEST_SKIP() << "only root can become another user";
    EXPECT_EXIT(becomeOther(true, false), testing::ExitedWithCode(0), "");
    EXPECT_EXIT(becomeOther(false, true), testing::ExitedWithCode(0), "");
}

} // namespace
