#include "ClientOperations.h"

#include "support/Leftovers.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <functional>
#include <string>
#include <vector>

using namespace test;
using testing::_;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

using Operation = std::function<bool(WifiUtil&, const char* iface)>;

// Every operation that takes an interface, but for isWifiEnabled().
std::vector<Operation> operations() {
    std::vector<Operation> all{&WifiUtil::scanNetworks};
    for (const Command& command : COMMANDS)
        all.emplace_back(command.run);
    for (const Query& query : QUERIES) {
        if (!query.resetsCount) // getWifiAdapters(), which takes no interface
            continue;
        all.emplace_back([&query](WifiUtil& util, const char* iface) {
            char* lines[4] = {};
            unsigned char count = 3;
            const bool result = query.run(util, iface, lines, 4, &count);
            EXPECT_EQ(count, 0) << query.name;
            return result;
        });
    }
    return all;
}

class BadInput : public testing::Test {
protected:
    StandIn standIn;
    WifiUtil util;
};

// CMD-15
TEST_F(BadInput, AnUnusableInterfaceNameFailsEveryCommandWithoutAChild) {
    standIn.on({"*"}).prints("header\n0\n");
    const std::string endless(100000, 'w');
    const char* const names[] = {nullptr, "", "fourteen-chars", endless.c_str()};
    for (const Operation& operation : operations()) {
        for (const char* name : names)
            EXPECT_FALSE(operation(util, name));
    }
    EXPECT_FALSE(util.isWifiEnabled("fourteen-chars"));
    EXPECT_FALSE(util.isWifiEnabled(endless.c_str()));
    EXPECT_THAT(standIn.calls(), IsEmpty());
    EXPECT_THAT(resultFiles(), IsEmpty());
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
// The client takes any argument that begins with a dash for an option, and one option starts programs. A
// value may come from an access point, such as an SSID.
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
    const std::vector<Operation> every = operations();
    const auto failAll = [&] {
        int failures = 0;
        for (std::size_t i = 0; i < 336; ++i)
            failures += every[i % every.size()](util, "wlan0") ? 0 : 1;
        standIn.reset(); // the record of calls would only grow
        return failures;
    };
    const Leftovers before = Leftovers::now();
    standIn.on({"*"}).prints("FAIL\n").exits(1);
    EXPECT_EQ(failAll(), 336) << "refused";
    standIn.on({"*"}).prints("x\n").diesBy(9);
    EXPECT_EQ(failAll(), 336) << "killed";
    std::filesystem::remove(standIn.folder() + "/wpa_cli");
    EXPECT_EQ(failAll(), 336) << "missing";
    EXPECT_TRUE(Leftovers::now() == before);
}

} // namespace
