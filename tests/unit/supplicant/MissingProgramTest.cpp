// The line that a process prints when a program that the library runs is missing. It is printed
// once, so each test runs in its own process.

#include "supplicant/WifiUtil.h"

#include "support/StandIn.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>

using testing::AllOf;
using testing::Eq;
using testing::ExitedWithCode;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::ResultOf;

namespace {

constexpr const char* EMPTY = "/tmp/empty";

bool isOneLine(const std::string& text) {
    return text.find('\n') == text.size() - 1;
}

class MissingProgram : public testing::Test {
protected:
    void SetUp() override {
#ifdef TEST_EMULATOR
        GTEST_SKIP() << "the emulator does not report that a program cannot be started";
#endif
        std::filesystem::create_directories(EMPTY);
        setenv("PLATFORM_BOOT_DIR", EMPTY, 1);
    }
    ~MissingProgram() override {
        unsetenv("PLATFORM_BOOT_DIR");
    }

    // Ends the process: 0 where every call failed.
    [[noreturn]] static void callsFail(int times) {
        bool succeeded = false;
        WifiUtil util;
        for (int i = 0; i < times; ++i)
            succeeded = util.isWifiEnabled("wlan0") || util.saveConfiguration("wlan0") || succeeded;
        std::_Exit(succeeded ? 1 : 0);
    }
};

// CMD-3
TEST_F(MissingProgram, IsReportedOnceWithThePlaceThatTheEnvironmentNames) {
    EXPECT_EXIT(callsFail(3), ExitedWithCode(0),
                Eq("platwifi: cannot start pidin: No such file or directory; looked for "
                   "/tmp/empty/pidin; install the boot directory (wpa_cli, pidin) with the "
                   "libraries, or set PLATFORM_BOOT_DIR to its path\n"));
}

// CMD-3
TEST_F(MissingProgram, IsReportedWhenItCannotBeRun) {
    std::ofstream(std::string(EMPTY) + "/pidin") << "no program";
    EXPECT_EXIT(callsFail(1), ExitedWithCode(0),
                AllOf(ResultOf(isOneLine, true), HasSubstr("pidin: Permission denied; ")));
    std::filesystem::remove(std::string(EMPTY) + "/pidin");
}

TEST_F(MissingProgram, IsNotReportedWhenACommandFails) {
    test::StandIn standIn;
    standIn.on({"*"}).exits(1);
    EXPECT_EXIT(callsFail(1), ExitedWithCode(0), IsEmpty());
}

TEST_F(MissingProgram, IsNotReportedWhenTheSystemRefusesAnArgument) {
    test::StandIn standIn;
    const auto run = [] {
        const std::string huge(4 << 20, 'x');
        std::_Exit(WifiUtil().executeCustom("wlan0", 0, "set", huge.c_str()) ? 1 : 0);
    };
    EXPECT_EXIT(run(), ExitedWithCode(0), IsEmpty());
}

} // namespace
