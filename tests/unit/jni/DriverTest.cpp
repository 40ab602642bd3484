// Natives and flat functions that use the driver and no settings.

#include "EitherInterface.h"

#include "supplicant/WifiUtil.h"
#include "support/Leftovers.h"
#include "support/StandIn.h"
#include "support/TestTime.h"
#include "unit/settings/MissingWifiUtil.h"

#include <gmock/gmock.h>

#include <cstdio>
#include <fstream>
#include <optional>

using namespace test;
using testing::ElementsAre;

namespace {

constexpr const char* PID_FILE = "/var/run/wpa_supplicant.pid";

class DriverFixture {
protected:
    DriverFixture() {
        time.sleepsAreRecorded(); // a scan takes no time
        standIn.on({"interface"});
    }
    ~DriverFixture() {
        WifiUtil::unload();
        for (const std::string& file : resultFiles())
            std::remove(file.c_str());
    }

    // What a scan prints; its results are read with this exit status.
    void answerScan(const std::string& results, int status = 0) {
        standIn.on({"-iwlan0", "status"}).prints("wpa_state=COMPLETED\n");
        standIn.on({"-iwlan0", "scan"}).prints("OK\n");
        standIn.on({"-iwlan0", "scan_results"}).prints(results).exits(status);
    }

    TestTime time;
    StandIn standIn;
};

class Driver : public EitherInterface, public DriverFixture {
protected:
    bool isEnabled(const char* iface) {
        return isNative() ? flag("isWifiEnabled0", {iface}) : isWifiEnabled(nullptr, iface) != 0;
    }

    bool hashes() {
        return isNative() ? flag("hashCACertificates0") : hashCACertificates(nullptr) == 1;
    }

    // What is in range, no more than 32; no value on failure.
    std::optional<FakeJni::Elements> discovered(const char* iface) {
        return isNative() ? ofNative(iface) : ofFunction(iface);
    }

private:
    std::optional<FakeJni::Elements> ofNative(const char* iface) {
        const jobject array = object("discoverNetworks0", {iface});
        return array ? std::optional(java.elementsOf(array)) : std::nullopt;
    }

    static std::optional<FakeJni::Elements> ofFunction(const char* iface) {
        char** list = nullptr;
        unsigned char count = 0;
        if (discoverNetworks(nullptr, iface, &list, 32, &count) == 0)
            return std::nullopt;
        FakeJni::Elements found(list, list + count);
        for (int i = 0; i < 32; ++i) {
            EXPECT_EQ(list[i] != nullptr, i < count);
            delete[] list[i];
        }
        delete[] list;
        return found;
    }
};

// RUNS-4
TEST_P(Driver, ReportsWhetherTheSupplicantRunsOnAnInterface) {
    standIn.on({"-iwlan0", "arg"}).prints("7 wpa_supplicant\n").then().prints("1 init\n");
    EXPECT_TRUE(isEnabled("wlan0"));
    EXPECT_FALSE(isEnabled("wlan0"));
    EXPECT_FALSE(isEnabled("fourteen-chars"));
}

// RUNS-4
TEST_P(Driver, ReportsWhetherTheSupplicantRunsAtAllForNull) {
    EXPECT_FALSE(isEnabled(nullptr));
    std::ofstream(PID_FILE) << "1\n";
    EXPECT_TRUE(isEnabled(nullptr));
    std::remove(PID_FILE);
}

// API-7
TEST_P(Driver, HashesCertificates) {
    EXPECT_TRUE(hashes());
}

TEST_P(Driver, ScansAndListsTheNetworksInRange) {
    answerScan("header\n02:00:00:00:01:00\t2412\t-30\t[WPA2-PSK-CCMP][ESS]\tlab\nsecond\n");
    EXPECT_EQ(
        discovered("wlan0"),
        (FakeJni::Elements{"02:00:00:00:01:00\t2412\t-30\t[WPA2-PSK-CCMP][ESS]\tlab", "second"}));
    const std::string client = "/proc/boot/wpa_cli";
    EXPECT_THAT(standIn.calls(),
                ElementsAre(Arguments{client, "interface"}, Arguments{client, "-iwlan0", "status"},
                            Arguments{client, "-iwlan0", "scan"},
                            Arguments{client, "-iwlan0", "status"},
                            Arguments{client, "-iwlan0", "scan_results"}));
}

TEST_P(Driver, ReturnsAnEmptyListIfNothingIsInRange) {
    answerScan("header\n");
    EXPECT_EQ(discovered("wlan0"), FakeJni::Elements{});
}

TEST_P(Driver, ListsNoMoreThan32) {
    std::string lines;
    for (int i = 0; i < 40; ++i)
        lines += "line " + std::to_string(i) + "\n";
    answerScan("header\n" + lines);
    const std::optional<FakeJni::Elements> found = discovered("wlan0");
    ASSERT_TRUE(found);
    ASSERT_EQ(found->size(), 32U);
    EXPECT_EQ(found->back(), "line 31");
}

TEST_P(Driver, ListsNothingIfAStepFails) {
    answerScan("header\nline\n", 255);
    EXPECT_FALSE(discovered("wlan0")) << "reading the results";
    standIn.reset();
    standIn.on({"-iwlan0", "status"}).exits(255);
    standIn.on({"*"}).prints("OK\n");
    EXPECT_FALSE(discovered("wlan0")) << "the scan";
    EXPECT_FALSE(discovered(nullptr)) << "no interface";
    EXPECT_FALSE(discovered("fourteen-chars"));
}

TEST_P(Driver, FailsIfThereIsNone) {
    const MissingWifiUtil missing;
    EXPECT_FALSE(isEnabled("wlan0"));
    EXPECT_FALSE(isEnabled(nullptr));
    EXPECT_FALSE(hashes());
    EXPECT_FALSE(discovered("wlan0"));
}

BY_EITHER_INTERFACE(Driver);

// The list of the function, which the caller owns.

class DiscoverFunction : public DriverFixture, public testing::Test {
protected:
    // After a failure before the list was made.
    void expectUntouched() const {
        EXPECT_EQ(list, &none);
        EXPECT_EQ(count, 77);
    }

    char* none = nullptr;
    char** list = &none;
    unsigned char count = 77;
};

TEST_F(DiscoverFunction, ReturnsAnEmptyListForNoCapacity) {
    answerScan("header\none\n");
    ASSERT_EQ(discoverNetworks(nullptr, "wlan0", &list, 0, &count), 1);
    EXPECT_EQ(count, 0);
    delete[] list;
}

TEST_F(DiscoverFunction, ChangesNothingIfTheScanFails) {
    standIn.on({"-iwlan0", "status"}).exits(255);
    for (const char* const iface : {"wlan0", "fourteen-chars", static_cast<const char*>(nullptr)})
        EXPECT_EQ(discoverNetworks(nullptr, iface, &list, 5, &count), 0);
    expectUntouched();
}

TEST_F(DiscoverFunction, ChangesNothingWithoutADriver) {
    const MissingWifiUtil missing;
    EXPECT_EQ(discoverNetworks(nullptr, "wlan0", &list, 5, &count), 0);
    expectUntouched();
}

TEST_F(DiscoverFunction, FreesTheListIfItsContentCannotBeRead) {
    answerScan("header\none\n", 255);
    EXPECT_EQ(discoverNetworks(nullptr, "wlan0", &list, 5, &count), 0);
    EXPECT_EQ(list, nullptr);
    EXPECT_EQ(count, 0);
}

TEST_F(DiscoverFunction, NeedsAPlaceForTheList) {
    answerScan("header\none\n");
    EXPECT_EQ(discoverNetworks(nullptr, "wlan0", nullptr, 5, &count), 0);
    EXPECT_EQ(discoverNetworks(nullptr, "wlan0", &list, 5, nullptr), 0);
}

} // namespace
