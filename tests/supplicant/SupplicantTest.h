#pragma once

#include "Supplicant.h"
#include "supplicant/WifiUtil.h"
#include "support/Leftovers.h"
#include "support/Lines.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>

namespace test {

constexpr const char* WLAN = "wlan0";

/// A test of the library against the host's supplicant.
class WifiUtilTest : public testing::Test {
protected:
    ~WifiUtilTest() override { WifiUtil::unload(); }

    // Only the scan leaves a file, which the thread's next scan empties.
    void TearDown() override {
        EXPECT_THAT(resultFiles(), testing::Each(testing::StartsWith("/tmp/wpa_cli_scan_result_")));
    }

    using ListQuery = bool (WifiUtil::*)(const char*, char**, unsigned char, unsigned char*);

    static WifiUtil& util() { return *WifiUtil::getInstance(); }

    static Lines list(ListQuery query, unsigned char max = 32) {
        platwifi::ReplyLines lines(max);
        EXPECT_TRUE((util().*query)(WLAN, lines.data(), lines.capacity(), &lines.count));
        return toStrings(lines);
    }
};

/// Each test starts a supplicant of its own.
class SupplicantTest : public WifiUtilTest {
protected:
    Supplicant supplicant;
};

/// The tests of a suite share one supplicant, since its start takes most of their time; each begins
/// with a file of its own, which it reloads.
class SharedSupplicantTest : public WifiUtilTest {
public:
    static void TearDownTestSuite() { s_shared.reset(); }

protected:
    Supplicant& supplicant = shared();

private:
    static Supplicant& shared() {
        if (!s_shared) {
            s_shared = std::make_unique<Supplicant>();
            s_shared->start();
        }
        return *s_shared;
    }

    inline static std::unique_ptr<Supplicant> s_shared;
};

} // namespace test
