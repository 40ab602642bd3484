// How a process gets its profile. The choice is made once, so each check runs in a process that is forked from
// this one, where no profile was chosen.

#include "Profile.h"
#include "jni/ServiceFunctions.h"

#include "support/StandIn.h"

#include <gtest/gtest.h>

#include <cstdlib>

using platwifi::Profile;

namespace {

// Ends the process with status 0 where the check is true.
template <typename Check>
[[noreturn]] void endWith(Check check) {
    std::_Exit(check() ? 0 : 1);
}

// Null for a variable that is not set.
void setVariable(const char* value) {
    if (value)
        setenv("PLATWIFI_PROFILE", value, 1);
    else
        unsetenv("PLATWIFI_PROFILE");
}

#define EXPECT_IN_A_NEW_PROCESS(value, text, ...)                                                  \
    EXPECT_EXIT((setVariable(value), endWith([&] { return __VA_ARGS__; })),                        \
                testing::ExitedWithCode(0), text)

// PROFILE-1
TEST(ProfileChoice, IsTheDeviceWithoutAWord) {
    EXPECT_IN_A_NEW_PROCESS(nullptr, "", platwifi::profile() == Profile::DEVICE);
}

// PROFILE-1
TEST(ProfileChoice, IsThatOfTheEnvironment) {
    EXPECT_IN_A_NEW_PROCESS("modern", "", platwifi::profile() == Profile::MODERN);
    EXPECT_IN_A_NEW_PROCESS("device", "", platwifi::profile() == Profile::DEVICE);
}

// PROFILE-1
TEST(ProfileChoice, OfAnUnknownNameIsTheDeviceAndOneLine) {
    for (const char* name : {"Modern", "", "modern "})
        EXPECT_IN_A_NEW_PROCESS(name, "^platwifi: PLATWIFI_PROFILE names no profile; [^\n]*\n$",
                                platwifi::profile() == Profile::DEVICE &&
                                    platwifi::profile() == Profile::DEVICE);
}

// PROFILE-2
TEST(ProfileChoice, OfTheFunctionGoesBeforeTheEnvironment) {
    EXPECT_IN_A_NEW_PROCESS("device", "",
                            setWifiProfile(nullptr, "modern") == 1 &&
                                platwifi::profile() == Profile::MODERN);
    EXPECT_IN_A_NEW_PROCESS("modern", "",
                            setWifiProfile(nullptr, "device") == 1 &&
                                platwifi::profile() == Profile::DEVICE);
}

// PROFILE-2
TEST(ProfileChoice, ByAnUnknownNameChangesNothing) {
    EXPECT_IN_A_NEW_PROCESS(
        "modern", "",
        setWifiProfile(nullptr, nullptr) == 0 && setWifiProfile(nullptr, "") == 0 &&
            setWifiProfile(nullptr, "DEVICE") == 0 && platwifi::profile() == Profile::MODERN);
}

// PROFILE-2
TEST(ProfileChoice, IsFinalOnceTheSettingsAreMade) {
    const test::StandIn standIn; // whose client answers nothing
    EXPECT_IN_A_NEW_PROCESS(
        nullptr, "",
        setWifiProfile(nullptr, "modern") == 1 && setWifiProfile(nullptr, "device") == 1 &&
            stopWifiService(nullptr) == 1 && setWifiProfile(nullptr, "modern") == 0 &&
            setWifiProfile(nullptr, "device") == 1 && platwifi::profile() == Profile::DEVICE);
}

} // namespace
