#include "supplicant/WifiUtil.h"

#include "support/FakeJni.h"
#include "support/Leftovers.h"
#include "support/StandIn.h"
#include "support/TestTime.h"
#include "unit/settings/MissingWifiUtil.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdio>
#include <fstream>
#include <jni.h>
#include <string>

extern "C" {
jboolean Java_com_quorvel_platwifi_BWifiPlatformService_isWifiEnabled0(JNIEnv*, jclass, jstring);
jboolean Java_com_quorvel_platwifi_BWifiPlatformService_hashCACertificates0(JNIEnv*, jclass);
jobjectArray Java_com_quorvel_platwifi_BWifiPlatformService_discoverNetworks0(JNIEnv*, jclass,
                                                                              jstring);
}

using test::Arguments;
using test::FakeJni;
using testing::ElementsAre;

namespace {

class Natives : public testing::Test {
protected:
    Natives() { time.sleepsAreRecorded(); } // a scan takes no time
    ~Natives() override {
        WifiUtil::unload();
        EXPECT_EQ(java.heldCharacters(), 0U);
        EXPECT_FALSE(java.pendingException());
        for (const std::string& file : test::resultFiles())
            std::remove(file.c_str());
    }

    jboolean isWifiEnabled(const char* iface) {
        return Java_com_quorvel_platwifi_BWifiPlatformService_isWifiEnabled0(
            java.environment(), nullptr, iface ? java.javaString(iface) : nullptr);
    }

    jobjectArray discoverNetworks(jstring iface) {
        return Java_com_quorvel_platwifi_BWifiPlatformService_discoverNetworks0(java.environment(),
                                                                                nullptr, iface);
    }

    test::TestTime time;
    FakeJni java;
    test::StandIn standIn;
};

// RUNS-4
TEST_F(Natives, AskAboutAnInterface) {
    standIn.on({"interface"});
    standIn.on({"-iwlan0", "arg"}).prints("7 wpa_supplicant\n").then().prints("1 init\n");
    EXPECT_EQ(isWifiEnabled("wlan0"), JNI_TRUE);
    EXPECT_EQ(isWifiEnabled("wlan0"), JNI_FALSE);
    EXPECT_EQ(isWifiEnabled("fourteen-chars"), JNI_FALSE);
}

// RUNS-4
TEST_F(Natives, AskAboutTheDefaultInterfaceForNull) {
    EXPECT_EQ(isWifiEnabled(nullptr), JNI_FALSE);
    std::ofstream("/var/run/wpa_supplicant.pid") << "1\n";
    EXPECT_EQ(isWifiEnabled(nullptr), JNI_TRUE);
    std::remove("/var/run/wpa_supplicant.pid");
}

// API-7
TEST_F(Natives, HashCertificates) {
    EXPECT_EQ(Java_com_quorvel_platwifi_BWifiPlatformService_hashCACertificates0(java.environment(),
                                                                                 nullptr),
              JNI_TRUE);
}

TEST_F(Natives, FailWithoutADriver) {
    const test::MissingWifiUtil missing;
    EXPECT_EQ(isWifiEnabled("wlan0"), JNI_FALSE);
    EXPECT_EQ(isWifiEnabled(nullptr), JNI_FALSE);
    EXPECT_EQ(Java_com_quorvel_platwifi_BWifiPlatformService_hashCACertificates0(java.environment(),
                                                                                 nullptr),
              JNI_FALSE);
    EXPECT_EQ(discoverNetworks(java.javaString("wlan0")), nullptr);
}

class NativeDiscovery : public Natives {
protected:
    void answer(const std::string& lines, int status = 0) {
        standIn.on({"interface"});
        standIn.on({"-iwlan0", "status"}).prints("wpa_state=COMPLETED\n");
        standIn.on({"-iwlan0", "scan"}).prints("OK\n");
        standIn.on({"-iwlan0", "scan_results"}).prints("header\n" + lines).exits(status);
    }
};

TEST_F(NativeDiscovery, ScansAndListsWhatWasFound) {
    answer("02:00:00:00:01:00\t2412\t-30\t[WPA2-PSK-CCMP][ESS]\tlab\nsecond\n");
    EXPECT_EQ(
        java.elementsOf(discoverNetworks(java.javaString("wlan0"))),
        (FakeJni::Elements{"02:00:00:00:01:00\t2412\t-30\t[WPA2-PSK-CCMP][ESS]\tlab", "second"}));
    const std::string client = "/proc/boot/wpa_cli";
    EXPECT_THAT(standIn.calls(),
                ElementsAre(Arguments{client, "interface"}, Arguments{client, "-iwlan0", "status"},
                            Arguments{client, "-iwlan0", "scan"},
                            Arguments{client, "-iwlan0", "status"},
                            Arguments{client, "-iwlan0", "scan_results"}));
}

TEST_F(NativeDiscovery, GivesAnEmptyArrayWhenNothingIsInRange) {
    answer("");
    EXPECT_EQ(java.elementsOf(discoverNetworks(java.javaString("wlan0"))), FakeJni::Elements{});
}

TEST_F(NativeDiscovery, ListsNoMoreThan32) {
    std::string lines;
    for (int i = 0; i < 40; ++i)
        lines += "line " + std::to_string(i) + "\n";
    answer(lines);
    const FakeJni::Elements found = java.elementsOf(discoverNetworks(java.javaString("wlan0")));
    ASSERT_EQ(found.size(), 32U);
    EXPECT_EQ(found.back(), "line 31");
}

TEST_F(NativeDiscovery, GivesNullWhenEitherStepFails) {
    answer("line\n", 255);
    EXPECT_EQ(discoverNetworks(java.javaString("wlan0")), nullptr) << "reading the results";
    standIn.reset();
    standIn.on({"-iwlan0", "status"}).exits(255);
    standIn.on({"*"}).prints("OK\n");
    EXPECT_EQ(discoverNetworks(java.javaString("wlan0")), nullptr) << "the scan";
    EXPECT_EQ(discoverNetworks(nullptr), nullptr) << "no interface";
}

} // namespace
