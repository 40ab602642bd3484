#include "supplicant/WifiUtil.h"

#include "support/Leftovers.h"
#include "support/StandIn.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <functional>
#include <string>
#include <vector>

using testing::_;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

namespace {

struct Operation {
    const char* name;
    std::function<bool(WifiUtil&, const char* iface)> run;
};

struct Room {
    char* lines[4] = {};
    unsigned char count = 3;
};

const Operation OPERATIONS[] = {
    {"getNetworkDatabaseSsids",
     [](WifiUtil& util, const char* iface) {
         Room room;
         const bool result = util.getNetworkDatabaseSsids(iface, room.lines, 4, &room.count);
         EXPECT_EQ(room.count, 0);
         return result;
     }},
    {"discoverNetworks",
     [](WifiUtil& util, const char* iface) {
         Room room;
         const bool result = util.discoverNetworks(iface, room.lines, 4, &room.count);
         EXPECT_EQ(room.count, 0);
         return result;
     }},
    {"getCurrentNetworkStatus",
     [](WifiUtil& util, const char* iface) {
         Room room;
         const bool result = util.getCurrentNetworkStatus(iface, room.lines, 4, &room.count);
         EXPECT_EQ(room.count, 0);
         return result;
     }},
    {"scanNetworks", [](WifiUtil& util, const char* iface) { return util.scanNetworks(iface); }},
    {"createNetwork",
     [](WifiUtil& util, const char* iface) {
         unsigned char id = 0;
         return util.createNetwork(iface, "home", &id);
     }},
    {"setNetworkValue",
     [](WifiUtil& util, const char* iface) {
         return util.setNetworkValue(iface, 0, "ssid", "home");
     }},
    {"getNetworkValue",
     [](WifiUtil& util, const char* iface) {
         char value[8];
         return util.getNetworkValue(iface, 0, "ssid", value, sizeof(value));
     }},
    {"connectToNetwork",
     [](WifiUtil& util, const char* iface) { return util.connectToNetwork(iface, 0); }},
    {"disconnectFromNetwork",
     [](WifiUtil& util, const char* iface) { return util.disconnectFromNetwork(iface, 0); }},
    {"removeNetwork",
     [](WifiUtil& util, const char* iface) { return util.removeNetwork(iface, 0); }},
    {"saveConfiguration",
     [](WifiUtil& util, const char* iface) { return util.saveConfiguration(iface); }},
    {"reloadConfiguration",
     [](WifiUtil& util, const char* iface) { return util.reloadConfiguration(iface); }},
    {"forceReassociation",
     [](WifiUtil& util, const char* iface) { return util.forceReassociation(iface); }},
    {"executeCustom",
     [](WifiUtil& util, const char* iface) {
         return util.executeCustom(iface, 0, "bssid", "any");
     }},
};

class BadInput : public testing::Test {
protected:
    test::StandIn standIn;
    WifiUtil util;
};

// CMD-15
TEST_F(BadInput, AnUnusableInterfaceNameFailsEveryCommandWithoutAChild) {
    standIn.on({"*"}).prints("header\n0\n");
    const std::string endless(100000, 'w');
    const char* const names[] = {nullptr, "", "fourteen-chars", endless.c_str()};
    for (const Operation& operation : OPERATIONS) {
        for (const char* name : names)
            EXPECT_FALSE(operation.run(util, name)) << operation.name;
    }
    EXPECT_FALSE(util.isWifiEnabled("fourteen-chars"));
    EXPECT_FALSE(util.isWifiEnabled(endless.c_str()));
    EXPECT_THAT(standIn.calls(), IsEmpty());
    EXPECT_THAT(test::resultFiles(), IsEmpty());
}

TEST_F(BadInput, AnInterfaceNameOf13CharactersIsNamedInFull) {
    standIn.on({"*"}).prints("OK\n");
    EXPECT_TRUE(util.saveConfiguration("thirteenchars"));
    EXPECT_EQ(standIn.calls()[0][1], "-ithirteenchars");
}

TEST_F(BadInput, NullForATextOrAnArrayFailsWithoutAChild) {
    standIn.on({"*"}).prints("0\n");
    char* lines[2] = {};
    char value[8];
    unsigned char count = 0;
    unsigned char id = 0;
    EXPECT_FALSE(util.getWifiAdapters(nullptr, 2, &count));
    EXPECT_FALSE(util.getWifiAdapters(lines, 2, nullptr));
    EXPECT_FALSE(util.getNetworkDatabaseSsids("wlan0", nullptr, 2, &count));
    EXPECT_FALSE(util.getNetworkDatabaseSsids("wlan0", lines, 2, nullptr));
    EXPECT_FALSE(util.discoverNetworks("wlan0", nullptr, 2, &count));
    EXPECT_FALSE(util.getCurrentNetworkStatus("wlan0", lines, 2, nullptr));
    EXPECT_FALSE(util.createNetwork("wlan0", nullptr, &id));
    EXPECT_FALSE(util.createNetwork("wlan0", "home", nullptr));
    EXPECT_FALSE(util.setNetworkValue("wlan0", 0, nullptr, "x"));
    EXPECT_FALSE(util.setNetworkValue("wlan0", 0, "ssid", nullptr));
    EXPECT_FALSE(util.getNetworkValue("wlan0", 0, nullptr, value, sizeof(value)));
    EXPECT_FALSE(util.getNetworkValue("wlan0", 0, "ssid", nullptr, 8));
    EXPECT_FALSE(util.executeCustom("wlan0", 0, nullptr, "x"));
    EXPECT_THAT(standIn.calls(), IsEmpty());
}

// VALUE-5
// An access point chooses its SSID. The client looks for options in every argument, and one starts
// programs.
TEST_F(BadInput, AValueThatTheClientWouldTakeForAnOptionFailsWithoutAChild) {
    standIn.on({"*"}).prints("OK\n");
    const std::string key = "-a/tmp/x" + std::string(56, 'a');
    EXPECT_FALSE(util.setNetworkValue("wlan0", 0, "bssid", "-v:cafe"));
    EXPECT_FALSE(util.setNetworkValue("wlan0", 0, "bssid", "--"));
    EXPECT_FALSE(util.setNetworkValue("wlan0", 0, "psk", key.c_str()));
    EXPECT_FALSE(util.setNetworkValue("wlan0", 0, "identity", "-a/tmp/x\""));
    EXPECT_FALSE(util.executeCustom("wlan0", 0, "bssid", "-a/tmp/x"));
    EXPECT_THAT(standIn.calls(), IsEmpty());
}

// VALUE-5
TEST_F(BadInput, ANegativeNumberALoneDashAndAQuotedTextAreNoOptions) {
    standIn.on({"*"}).prints("OK\n");
    EXPECT_TRUE(util.setNetworkValue("wlan0", 0, "bssid", "-"));
    EXPECT_TRUE(util.executeCustom("wlan0", 0, "bssid", "-"));
    EXPECT_TRUE(util.setNetworkValue("wlan0", 0, "priority", "-1"));
    EXPECT_TRUE(util.setNetworkValue("wlan0", 0, "identity", "-v"));
    EXPECT_THAT(standIn.calls(),
                ElementsAre(ElementsAre(_, _, "set_network", "0", "bssid", "-"),
                            ElementsAre(_, _, "bssid", "0", "-"),
                            ElementsAre(_, _, "set_network", "0", "priority", "-1"),
                            ElementsAre(_, _, "set_network", "0", "identity", "\"-v\"")));
}

TEST_F(BadInput, AThousandFailingCommandsLeaveNothingBehind) {
    struct Way {
        const char* name;
        std::function<void()> prepare;
    };
    const std::string client = standIn.folder() + "/wpa_cli";
    const Way ways[] = {
        {"refused", [this] { standIn.on({"*"}).prints("FAIL\n").exits(1); }},
        {"killed", [this] { standIn.reset(), standIn.on({"*"}).prints("x\n").diesBy(9); }},
        {"missing", [&client] { std::filesystem::remove(client); }},
    };
    const test::Leftovers before = test::Leftovers::now();
    int failures = 0;
    for (const Way& way : ways) {
        way.prepare();
        for (std::size_t i = 0; i < 336; ++i)
            failures += OPERATIONS[i % std::size(OPERATIONS)].run(util, "wlan0") ? 0 : 1;
        standIn.reset(); // the record of calls would only grow
    }
    EXPECT_EQ(failures, 1008);
    const test::Leftovers after = test::Leftovers::now();
    EXPECT_EQ(after.descriptors, before.descriptors);
    EXPECT_EQ(after.children, before.children);
    EXPECT_EQ(after.files, before.files);
}

} // namespace
