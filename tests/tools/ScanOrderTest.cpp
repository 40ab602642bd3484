#include "host/ScanOrder.h"

#include <gmock/gmock.h>

using namespace cli;
using testing::ElementsAre;

namespace {

ScanResult result(const char* bssid, int frequency, int signal, const char* flags,
                  const char* ssid) {
    return {bssid, frequency, signal, flags, ssid};
}

// The BSSIDs in this order.
std::vector<std::string> sorted(const std::string& order) {
    std::vector<ScanResult> results = {
        result("far", 2412, -80, "[WPA2-PSK-CCMP][ESS]", "home"),
        result("near", 5180, -30, "[WPA2-PSK-CCMP][ESS]", "home"),
        result("hidden", 5955, -60, "[WPA2-SAE-CCMP][ESS]", ""),
        result("bytes", 2484, -50, "[WEP][ESS]", "é"),
        result("open", 2412, -40, "[ESS]", "cafe"),
    };
    sortBy(order, results);
    std::vector<std::string> names;
    for (const ScanResult& one : results)
        names.push_back(one.bssid);
    return names;
}

TEST(TheOrder, OfTheSignalIsStrongestFirst) {
    EXPECT_THAT(sorted("signal"), ElementsAre("near", "open", "bytes", "hidden", "far"));
}

TEST(TheOrder, OfTheSsidIsThatOfItsBytes) {
    EXPECT_THAT(sorted("ssid"), ElementsAre("hidden", "open", "near", "far", "bytes"));
}

TEST(TheOrder, OfTheChannelIsThatOfTheFrequency) {
    EXPECT_THAT(sorted("channel"), ElementsAre("open", "far", "bytes", "near", "hidden"));
}

TEST(TheOrder, OfTheSecurityIsThatOfItsWords) {
    EXPECT_THAT(sorted("security"), ElementsAre("bytes", "near", "far", "hidden", "open"));
}

TEST(TheOrder, OfTheSignalIsTheDefault) {
    EXPECT_STREQ(scanOrders().front().name, "signal");
    EXPECT_EQ(sorted("unknown"), sorted("signal"));
}

} // namespace
