// A supplicant that has ended, or is stopped.

#include "SupplicantTest.h"

#include <filesystem>
#include <functional>
#include <string>
#include <vector>

using test::Leftovers;
using test::openNetworks;
using test::WLAN;
using testing::HasSubstr;

namespace {

bool isAnswered(WifiUtil& util,
                bool (WifiUtil::*query)(const char*, char**, unsigned char, unsigned char*)) {
    platwifi::ReplyLines lines(16);
    return (util.*query)(WLAN, lines.data(), lines.capacity(), &lines.count);
}

struct Operation {
    const char* name;
    std::function<bool(WifiUtil&)> run;
};

const Operation OPERATIONS[] = {
    {"getWifiAdapters",
     [](WifiUtil& util) {
         platwifi::ReplyLines lines(2);
         return util.getWifiAdapters(lines.data(), lines.capacity(), &lines.count);
     }},
    {"getNetworkDatabaseSsids",
     [](WifiUtil& util) { return isAnswered(util, &WifiUtil::getNetworkDatabaseSsids); }},
    {"discoverNetworks",
     [](WifiUtil& util) { return isAnswered(util, &WifiUtil::discoverNetworks); }},
    {"getCurrentNetworkStatus",
     [](WifiUtil& util) { return isAnswered(util, &WifiUtil::getCurrentNetworkStatus); }},
    {"scanNetworks", [](WifiUtil& util) { return util.scanNetworks(WLAN); }},
    {"createNetwork",
     [](WifiUtil& util) {
         unsigned char id = 0;
         return util.createNetwork(WLAN, "work", &id);
     }},
    {"setNetworkValue",
     [](WifiUtil& util) { return util.setNetworkValue(WLAN, 0, "psk", "12345678"); }},
    {"getNetworkValue",
     [](WifiUtil& util) {
         char value[64];
         return util.getNetworkValue(WLAN, 0, "ssid", value, sizeof(value));
     }},
    {"connectToNetwork", [](WifiUtil& util) { return util.connectToNetwork(WLAN, 0); }},
    {"disconnectFromNetwork", [](WifiUtil& util) { return util.disconnectFromNetwork(WLAN, 0); }},
    {"removeNetwork", [](WifiUtil& util) { return util.removeNetwork(WLAN, 0); }},
    {"saveConfiguration", [](WifiUtil& util) { return util.saveConfiguration(WLAN); }},
    {"reloadConfiguration", [](WifiUtil& util) { return util.reloadConfiguration(WLAN); }},
    {"forceReassociation", [](WifiUtil& util) { return util.forceReassociation(WLAN); }},
    {"executeCustom",
     [](WifiUtil& util) { return util.executeCustom(WLAN, 0, "enable_network", nullptr); }},
};

class Outage : public test::SupplicantTest, public testing::WithParamInterface<Operation> {
protected:
    Outage() { supplicant.start(openNetworks({"home"})); }

    bool run() { return GetParam().run(util()); }

    void expectFailureWithoutLeftovers() {
        const Leftovers before = Leftovers::now();
        EXPECT_FALSE(run());
        EXPECT_TRUE(Leftovers::now() == before);
    }
};

TEST_P(Outage, MakesTheOperationFailUntilTheNextStart) {
    supplicant.stop();
    expectFailureWithoutLeftovers();
    supplicant.startAgain();
    EXPECT_TRUE(run());
    supplicant.crash();
    expectFailureWithoutLeftovers();
}

INSTANTIATE_TEST_SUITE_P(Supplicant, Outage, testing::ValuesIn(OPERATIONS),
                         [](const auto& operation) { return operation.param.name; });

std::vector<std::string> clientSockets() {
    std::vector<std::string> sockets;
    for (const auto& entry : std::filesystem::directory_iterator("/tmp")) {
        if (entry.path().filename().string().find("wpa_ctrl_") == 0)
            sockets.push_back(entry.path());
    }
    return sockets;
}

class StoppedSupplicant : public test::SupplicantTest {};

TEST_F(StoppedSupplicant, MakesTheLibraryKillTheClient) {
    startConnected();
    EXPECT_EQ(list(&WifiUtil::getCurrentNetworkStatus), supplicant.ask("status"));
    const Leftovers before = Leftovers::now();
    supplicant.suspend();
    testing::internal::CaptureStderr();
    EXPECT_FALSE(isAnswered(util(), &WifiUtil::getCurrentNetworkStatus));
    EXPECT_THAT(testing::internal::GetCapturedStderr(),
                HasSubstr("command: status -> patience exhausted, killing: "));
    EXPECT_TRUE(Leftovers::now() == before);
    EXPECT_THAT(clientSockets(), testing::IsEmpty());
    supplicant.resume();
    EXPECT_EQ(list(&WifiUtil::getCurrentNetworkStatus), supplicant.ask("status"));
}

// CMD-12
TEST_F(StoppedSupplicant, LeavesTheCommandOfAKilledClientInTheSocket) {
    startConnected();
    EXPECT_TRUE(util().setNetworkValue(WLAN, 0, "priority", "1"));
    supplicant.suspend();
    testing::internal::CaptureStderr();
    EXPECT_FALSE(util().setNetworkValue(WLAN, 0, "priority", "7"));
    EXPECT_THAT(testing::internal::GetCapturedStderr(), HasSubstr("patience exhausted, killing: "));
    supplicant.resume();
    EXPECT_THAT(supplicant.ask("get_network 0 priority"), testing::ElementsAre("7"));
}

} // namespace
