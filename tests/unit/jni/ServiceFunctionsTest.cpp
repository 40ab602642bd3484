#include "jni/ServiceFunctions.h"

#include "supplicant/WifiUtil.h"
#include "support/Leftovers.h"
#include "support/StandIn.h"
#include "support/TestTime.h"
#include "unit/settings/MissingWifiUtil.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <fstream>
#include <string>

namespace {

class ServiceFunctions : public testing::Test {
protected:
    ServiceFunctions() {
        time.sleepsAreRecorded(); // a scan takes no time
        standIn.on({"interface"});
    }
    ~ServiceFunctions() override {
        WifiUtil::unload();
        for (const std::string& file : test::resultFiles())
            std::remove(file.c_str());
    }

    void answerScan(const std::string& results, int status = 0) {
        standIn.on({"-iwlan0", "status"}).prints("wpa_state=INACTIVE\n");
        standIn.on({"-iwlan0", "scan"}).prints("OK\n");
        standIn.on({"-iwlan0", "scan_results"}).prints(results).exits(status);
    }

    test::TestTime time;
    test::StandIn standIn;
    char* none = nullptr;
    char** list = &none; // what no failure before the list may touch
    unsigned char count = 77;
};

TEST_F(ServiceFunctions, HashCertificates) {
    EXPECT_EQ(hashCACertificates(nullptr), 1);
}

TEST_F(ServiceFunctions, TellWhetherTheSupplicantRuns) {
    standIn.on({"-iwlan0", "arg"}).prints("7 wpa_supplicant\n").then().prints("1 init\n");
    EXPECT_NE(isWifiEnabled(nullptr, "wlan0"), 0);
    EXPECT_EQ(isWifiEnabled(nullptr, "wlan0"), 0);
    EXPECT_EQ(isWifiEnabled(nullptr, nullptr), 0);
    std::ofstream("/var/run/wpa_supplicant.pid") << "1\n";
    EXPECT_NE(isWifiEnabled(nullptr, nullptr), 0);
    std::remove("/var/run/wpa_supplicant.pid");
}

TEST_F(ServiceFunctions, HandOverWhatAScanFound) {
    answerScan("header\none\ntwo\n");
    ASSERT_EQ(discoverNetworks(nullptr, "wlan0", &list, 5, &count), 1);
    ASSERT_EQ(count, 2);
    EXPECT_STREQ(list[0], "one");
    EXPECT_STREQ(list[1], "two");
    for (int i = 2; i < 5; ++i)
        EXPECT_EQ(list[i], nullptr);
    for (int i = 0; i < count; ++i)
        delete[] list[i];
    delete[] list;
}

TEST_F(ServiceFunctions, HandOverAnEmptyListForNoCapacity) {
    answerScan("header\none\n");
    ASSERT_EQ(discoverNetworks(nullptr, "wlan0", &list, 0, &count), 1);
    EXPECT_EQ(count, 0);
    delete[] list;
}

TEST_F(ServiceFunctions, TouchNothingWhenTheScanFails) {
    standIn.on({"-iwlan0", "status"}).exits(255);
    EXPECT_EQ(discoverNetworks(nullptr, "wlan0", &list, 5, &count), 0);
    EXPECT_EQ(discoverNetworks(nullptr, nullptr, &list, 5, &count), 0);
    EXPECT_EQ(discoverNetworks(nullptr, "fourteen-chars", &list, 5, &count), 0);
    EXPECT_EQ(list, &none);
    EXPECT_EQ(count, 77);
}

TEST_F(ServiceFunctions, TakeTheListBackWhenItsContentCannotBeRead) {
    answerScan("header\none\n", 255);
    EXPECT_EQ(discoverNetworks(nullptr, "wlan0", &list, 5, &count), 0);
    EXPECT_EQ(list, nullptr);
    EXPECT_EQ(count, 0);
}

TEST_F(ServiceFunctions, FailWithoutADriver) {
    const test::MissingWifiUtil missing;
    EXPECT_EQ(hashCACertificates(nullptr), 0);
    EXPECT_EQ(isWifiEnabled(nullptr, "wlan0"), 0);
    EXPECT_EQ(isWifiEnabled(nullptr, nullptr), 0);
    EXPECT_EQ(discoverNetworks(nullptr, "wlan0", &list, 5, &count), 0);
    EXPECT_EQ(list, &none);
    EXPECT_EQ(count, 77);
}

TEST_F(ServiceFunctions, NeedAPlaceForTheList) {
    answerScan("header\none\n");
    EXPECT_EQ(discoverNetworks(nullptr, "wlan0", nullptr, 5, &count), 0);
    EXPECT_EQ(discoverNetworks(nullptr, "wlan0", &list, 5, nullptr), 0);
}

} // namespace
