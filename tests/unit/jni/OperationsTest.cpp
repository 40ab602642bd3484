// Natives and flat functions that carry out one operation of the settings.

#include "EitherInterface.h"
#include "TwoNetworks.h"

#include "model/WifiNetwork.h"
#include "unit/settings/LoadedSettings.h"

#include <gmock/gmock.h>

#include <tuple>

using namespace test;
using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

// Of one network.

struct Operation {
    const char* name;
    const char* native;
    int (*function)(ErrorHandler*, const char*, const char*) noexcept;
    const char* ssid;
    const char* command; // the first
    bool acceptsUnknown; // succeeds for an SSID that no network has
};

// clang-format off
const Operation OPERATIONS[] = {
    {"Connect", "connectToNetwork0", connectToNetwork, "work", "-iwlan0 select 3", false},
    {"Disconnect", "disconnectFromNetwork0", disconnectFromNetwork, "work", "-iwlan0 disconnect", true},
    {"Add", "addNetwork0", addWifiNetwork, "new", "-iwlan0 add_network", true},
    {"Remove", "removeNetwork0", removeWifiNetwork, "work", "-iwlan0 remove_network 3", true},
};
// clang-format on

class OperationOnANetwork : public NativeCaller,
                            public testing::TestWithParam<std::tuple<Operation, Interface>> {
protected:
    static const Operation& operation() { return std::get<Operation>(GetParam()); }
    static bool isNative() { return std::get<Interface>(GetParam()) == Interface::NATIVE; }

    bool run(const char* iface, const char* ssid) {
        return isNative() ? flag(operation().native, {iface, ssid})
                          : operation().function(nullptr, iface, ssid) != 0;
    }

    LoadedSettings loaded;
};

TEST_P(OperationOnANetwork, SucceedsWithTheCommand) {
    loaded.load(NETWORKS, AT_HOME);
    loaded.answer("1\n");
    EXPECT_TRUE(run("wlan0", operation().ssid));
    EXPECT_EQ(loaded.commands().at(0), operation().command);
}

TEST_P(OperationOnANetwork, FailsWithTheCommand) {
    loaded.load(NETWORKS, AT_HOME);
    loaded.answer("FAIL\n", 1);
    EXPECT_FALSE(run("wlan0", operation().ssid));
    EXPECT_THAT(loaded.commands(), ElementsAre(operation().command));
    for (const char* const iface : {"fourteen-chars", "", static_cast<const char*>(nullptr)})
        EXPECT_FALSE(run(iface, operation().ssid));
    EXPECT_EQ(loaded.commands().size(), 1U);
}

TEST_P(OperationOnANetwork, TakesANullSsidForAnUnknownOne) {
    loaded.load(NETWORKS, AT_HOME);
    loaded.answer("1\n");
    const bool cannotBeMade = operation().function == addWifiNetwork;
    const bool expected = operation().acceptsUnknown && !cannotBeMade;
    EXPECT_EQ(run("wlan0", nullptr), expected);
    EXPECT_EQ(run(nullptr, nullptr), expected);
    EXPECT_THAT(loaded.commands(), IsEmpty());
}

// A virtual machine writes U+1F600 as two surrogates and the lone byte E9 as U+DCE9.
TEST_P(OperationOnANetwork, TakesAnySsid) {
    loaded.load(NETWORKS, AT_HOME);
    loaded.answer("1\n");
    const std::string longSsid(200, 's');
    for (const char* const ssid :
         {"unknown", longSsid.c_str(), isNative() ? "caf\xed\xb3\xa9" : "caf\xe9",
          isNative() ? "\xed\xa0\xbd\xed\xb8\x80" : "\xf0\x9f\x98\x80"})
        EXPECT_EQ(run("wlan0", ssid), operation().acceptsUnknown);
}

TEST_P(OperationOnANetwork, LoadsTheSettingsIfThereAreNone) {
    loaded.scriptLoad(NETWORKS);
    run("wlan0", "unknown");
    EXPECT_THAT(loaded.commands(), Contains("-iwlan0 list_networks"));
}

INSTANTIATE_TEST_SUITE_P(Every, OperationOnANetwork,
                         testing::Combine(testing::ValuesIn(OPERATIONS),
                                          testing::Values(Interface::NATIVE, Interface::FUNCTION)),
                         [](const auto& test) {
                             return std::get<Operation>(test.param).name +
                                    nameOf(std::get<Interface>(test.param));
                         });

// Of all networks.

class Operations : public EitherInterface {
protected:
    bool add(const char* ssid) {
        return isNative() ? flag("addNetwork0", {"wlan0", ssid})
                          : addWifiNetwork(nullptr, "wlan0", ssid) != 0;
    }

    bool roam(const char* iface) {
        return isNative() ? flag("roamNetworks0", {iface}) : roamNetworks(nullptr, iface) != 0;
    }

    bool save() {
        return isNative() ? flag("saveHostSettings0") : saveWifiHostSettings(nullptr) == 1;
    }

    bool unload() {
        return isNative() ? flag("unloadWifiSettings0") : stopWifiService(nullptr) == 1;
    }

    LoadedSettings loaded;
};

TEST_P(Operations, AddNetworksOfAnySsidOnce) {
    loaded.load("");
    loaded.standIn.on({"-iwlan0", "add_network"}).prints("1\n");
    loaded.answer("OK\n");
    EXPECT_TRUE(add(isNative() ? "\xed\xa0\xbd\xed\xb8\x80" : "\xf0\x9f\x98\x80"));
    EXPECT_EQ(loaded.commands().at(1), "-iwlan0 set_network 1 ssid \"\xf0\x9f\x98\x80\"");
    const char* const cafe = isNative() ? "caf\xed\xb3\xa9" : "caf\xe9";
    EXPECT_TRUE(add(cafe));
    EXPECT_EQ(loaded.commands().at(4), "-iwlan0 set_network 1 ssid \"caf\xe9\"");
    const std::size_t commands = loaded.commands().size();
    EXPECT_FALSE(add(cafe));
    EXPECT_EQ(loaded.commands().size(), commands);
    EXPECT_THAT(elements("getNetworkDatabaseSsids0"),
                ElementsAre("caf\xed\xb3\xa9", "\xed\xa0\xbd\xed\xb8\x80"));
}

TEST_P(Operations, Roam) {
    loaded.load("3\twork\tany\t\n");
    loaded.standIn.on({"-iwlan0", "reassociate"}).prints("OK\n").then().prints("FAIL\n");
    loaded.answer("OK\n");
    EXPECT_TRUE(roam("wlan0"));
    EXPECT_THAT(loaded.commands(),
                ElementsAre("-iwlan0 disconnect", "-iwlan0 set_network 3 disabled 0",
                            "-iwlan0 reassociate"));
    EXPECT_FALSE(roam("wlan0"));
    EXPECT_FALSE(roam(nullptr));
    EXPECT_FALSE(roam("fourteen-chars"));
}

TEST_P(Operations, SaveChanges) {
    WifiNetwork& network = *loaded.load("0\thome\tany\t\n").getNetwork("wlan0", "home");
    network.cleanDirtyFields();
    loaded.answer("OK\n");
    EXPECT_TRUE(save());
    EXPECT_THAT(loaded.commands(), IsEmpty());
    network.setPriority(5);
    EXPECT_TRUE(save());
    EXPECT_THAT(loaded.commands(), ElementsAre("-iwlan0 set_network 0 priority 5",
                                               "-iwlan0 save_config", "-iwlan0 reconfigure"));
}

TEST_P(Operations, ReportThatSavingFailed) {
    loaded.load("0\thome\tany\t\n").getNetwork("wlan0", "home")->setPriority(5);
    loaded.answer("FAIL\n");
    EXPECT_FALSE(save());
}

TEST_P(Operations, SaveNothingWithoutNetworks) {
    loaded.fail();
    EXPECT_TRUE(save());
}

TEST_P(Operations, UnloadTheSettingsWithoutMakingThem) {
    loaded.answer("");
    EXPECT_TRUE(unload());
    EXPECT_THAT(loaded.commands(), IsEmpty());
    loaded.load(NETWORKS);
    EXPECT_TRUE(unload());
    EXPECT_TRUE(unload());
    EXPECT_THAT(loaded.commands(), IsEmpty());
    loaded.scriptLoad("0\tother\tany\t\n");
    EXPECT_THAT(elements("getNetworkDatabaseSsids0"), ElementsAre("other")) << "loaded anew";
}

BY_EITHER_INTERFACE(Operations);

} // namespace
