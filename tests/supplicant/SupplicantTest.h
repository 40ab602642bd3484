#pragma once

#include "SharedSupplicant.h"
#include "supplicant/WifiUtil.h"
#include "support/Leftovers.h"
#include "support/Lines.h"

#include <cstdio>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace test {

/// A test of the library against the host's supplicant.
class WifiUtilTest : public testing::Test {
protected:
    ~WifiUtilTest() override { WifiUtil::unload(); }

    // Only a scan leaves a file, which the next test must not find.
    void TearDown() override {
        for (const std::string& file : resultFiles()) {
            EXPECT_THAT(file, testing::StartsWith("/tmp/wpa_cli_scan_result_"));
            remove(file.c_str());
        }
    }

    using ListQuery = bool (WifiUtil::*)(const char*, char**, unsigned char, unsigned char*);

    static WifiUtil& util() { return *WifiUtil::getInstance(); }

    /// Adds a network, which must succeed. @return its id
    static unsigned char create(const char* ssid) {
        unsigned char id = 99;
        EXPECT_TRUE(util().createNetwork(WLAN, ssid, &id));
        return id;
    }

    static Lines list(ListQuery query, unsigned char max = 32) {
        platwifi::ReplyLines lines(max);
        EXPECT_TRUE((util().*query)(WLAN, lines.data(), lines.capacity(), &lines.count));
        return toStrings(lines);
    }
};

/// Each test starts its own supplicant.
class SupplicantTest : public WifiUtilTest {
protected:
    SupplicantTest() { stopSharedSupplicant(); }

    /// Starts the supplicant with the open network "home", and waits until it is connected.
    void startConnected() {
        supplicant.start(openNetworks({"home"}));
        supplicant.awaitStatus("wpa_state=COMPLETED");
    }

    Supplicant supplicant;
};

/// The tests use the shared supplicant. Each begins with its own configuration file.
class SharedSupplicantTest : public WifiUtilTest {
protected:
    Supplicant& supplicant = sharedSupplicant();
};

} // namespace test
