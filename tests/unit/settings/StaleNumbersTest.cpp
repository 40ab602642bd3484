#include "settings/WifiHostSettings.h"

#include "LoadedSettings.h"
#include "model/WifiNetwork.h"
#include "settings/SettingsLock.h"
#include "settings/replies/PrintedSsid.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

using platwifi::SettingsLock;
using test::Commands;
using test::ssidsOf;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

const std::string HEADER = "network id / ssid / bssid / flags\n";
const std::string LIST = "-iwlan0 list_networks";

// The first of three networks was removed and that was saved: the supplicant has numbered the others
// anew.
class StaleNumbers : public testing::Test {
protected:
    WifiHostSettings& saved() {
        WifiHostSettings& settings =
            loaded.load("0\thome\tany\t\n1\twork\tany\t\n2\tcafe\tany\t\n");
        loaded.answer("OK\n");
        EXPECT_TRUE(settings.removeNetwork("wlan0", "home"));
        EXPECT_EQ(settings.saveNetworkSettings(), 1);
        EXPECT_THAT(loaded.commands(), ElementsAre("-iwlan0 remove_network 0",
                                                   "-iwlan0 save_config", "-iwlan0 reconfigure"));
        nowListed("0\twork\tany\t\n1\tcafe\tany\t\n");
        return settings;
    }

    void nowListed(const std::string& lines, int status = 0) {
        loaded.standIn.reset();
        loaded.standIn.on({"-iwlan0", "list_networks"}).prints(HEADER + lines).exits(status);
        loaded.answer("OK\n");
    }

    test::LoadedSettings loaded;
};

struct Operation {
    const char* name;
    bool (*run)(WifiHostSettings&);
    Commands commands;
};

const Operation OPERATIONS[] = {
    {"Remove",
     [](WifiHostSettings& settings) { return settings.removeNetwork("wlan0", "work"); },
     {"-iwlan0 remove_network 0"}},
    {"Connect",
     [](WifiHostSettings& settings) { return settings.connectNetwork("wlan0", "work"); },
     {"-iwlan0 select 0"}},
    {"Roam",
     [](WifiHostSettings& settings) { return settings.roamNetworks("wlan0"); },
     {"-iwlan0 disconnect", "-iwlan0 set_network 1 disabled 0", "-iwlan0 set_network 0 disabled 0",
      "-iwlan0 reassociate"}},
};

class OperationOnStaleNumbers : public StaleNumbers,
                                public testing::WithParamInterface<Operation> {};

// ID-1
TEST_P(OperationOnStaleNumbers, ConfirmsThemOnce) {
    WifiHostSettings& settings = saved();
    EXPECT_TRUE(GetParam().run(settings));
    Commands expected = GetParam().commands;
    expected.insert(expected.begin(), LIST);
    EXPECT_EQ(loaded.commands(), expected);
    EXPECT_TRUE(settings.connectNetwork("wlan0", "cafe"));
    EXPECT_EQ(loaded.commands().back(), "-iwlan0 select 1");
    EXPECT_EQ(loaded.commands().size(), expected.size() + 1) << "confirmed for all networks";
}

TEST_P(OperationOnStaleNumbers, FailsWithoutItsCommandWhenTheSupplicantDoesNotAnswer) {
    WifiHostSettings& settings = saved();
    nowListed("", 255);
    EXPECT_FALSE(GetParam().run(settings));
    EXPECT_THAT(loaded.commands(), ElementsAre(LIST));
    EXPECT_THAT(ssidsOf(settings), ElementsAre("cafe", "work"));
    nowListed("0\twork\tany\t\n1\tcafe\tany\t\n");
    EXPECT_TRUE(GetParam().run(settings)) << "asked again";
}

INSTANTIATE_TEST_SUITE_P(Every, OperationOnStaleNumbers, testing::ValuesIn(OPERATIONS),
                         [](const auto& test) { return std::string(test.param.name); });

// ID-3
TEST_F(StaleNumbers, AreNotUsedForANetworkThatIsNotListed) {
    WifiHostSettings& settings = saved();
    nowListed("0\tcafe\tany\t\n");
    EXPECT_FALSE(settings.connectNetwork("wlan0", "work"));
    EXPECT_FALSE(settings.removeNetwork("wlan0", "work"));
    EXPECT_THAT(loaded.commands(), ElementsAre(LIST, LIST));
    EXPECT_TRUE(settings.connectNetwork("wlan0", "cafe"));
    EXPECT_THAT(loaded.commands(), ElementsAre(LIST, LIST, LIST, "-iwlan0 select 0"));
    nowListed("0\tcafe\tany\t\n4\twork\tany\t\n");
    EXPECT_TRUE(settings.connectNetwork("wlan0", "work"));
    EXPECT_TRUE(settings.removeNetwork("wlan0", "work"));
    EXPECT_THAT(loaded.commands(),
                ElementsAre(LIST, "-iwlan0 select 4", "-iwlan0 remove_network 4"));
}

// ID-6
TEST_F(StaleNumbers, LetRoamingEnableTheNetworksThatAreListed) {
    WifiHostSettings& settings = saved();
    nowListed("0\tcafe\tany\t\n");
    EXPECT_TRUE(settings.roamNetworks("wlan0"));
    EXPECT_THAT(loaded.commands(),
                ElementsAre(LIST, "-iwlan0 disconnect", "-iwlan0 set_network 0 disabled 0",
                            "-iwlan0 reassociate"));
}

TEST_F(StaleNumbers, AreConfirmedAtTheAdapterThatTheNetworksAreOf) {
    WifiHostSettings& settings = saved();
    EXPECT_TRUE(settings.connectNetwork("wlan1", "cafe"));
    EXPECT_THAT(loaded.commands(), ElementsAre(LIST, "-iwlan1 select 1"));
}

TEST_F(StaleNumbers, AreConfirmedBeforeAnythingElseIsRun) {
    WifiHostSettings& settings = saved();
    EXPECT_TRUE(settings.disconnectNetwork("wlan0", "cafe"));
    EXPECT_THAT(loaded.commands(), ElementsAre("-iwlan0 disconnect")) << "it names no network";
    EXPECT_TRUE(settings.connectNetwork("wlan0", "cafe"));
    EXPECT_THAT(loaded.commands(),
                ElementsAre("-iwlan0 disconnect", LIST, "-iwlan0 reassociate", "-iwlan0 select 1"));
}

TEST_F(StaleNumbers, AreNotAskedForByOperationsThatUseNone) {
    WifiHostSettings& settings = saved();
    EXPECT_TRUE(settings.removeNetwork("wlan0", "unknown"));
    EXPECT_FALSE(settings.connectNetwork("wlan0", "unknown"));
    EXPECT_TRUE(settings.disconnectNetwork("wlan0", "unknown"));
    EXPECT_FALSE(settings.addNetwork("wlan0", "cafe"));
    EXPECT_EQ(ssidsOf(settings).size(), 2U);
    EXPECT_THAT(loaded.commands(), IsEmpty());
}

TEST_F(StaleNumbers, AreNotAskedForWithoutNetworks) {
    WifiHostSettings& settings = loaded.load("0\thome\tany\t\n");
    loaded.answer("OK\n");
    EXPECT_TRUE(settings.removeNetwork("wlan0", "home"));
    EXPECT_EQ(settings.saveNetworkSettings(), 1);
    loaded.standIn.reset();
    loaded.answer("OK\n");
    EXPECT_TRUE(settings.roamNetworks("wlan0"));
    EXPECT_THAT(loaded.commands(), ElementsAre("-iwlan0 disconnect", "-iwlan0 reassociate"));
}

TEST_F(StaleNumbers, AreFreshAfterAReload) {
    WifiHostSettings& settings = saved();
    loaded.scriptLoad("3\twork\tany\t\n");
    EXPECT_TRUE(settings.refreshAllSettings());
    loaded.standIn.reset();
    loaded.answer("OK\n");
    EXPECT_TRUE(settings.connectNetwork("wlan0", "work"));
    EXPECT_THAT(loaded.commands(), ElementsAre("-iwlan0 select 3"));
}

TEST_F(StaleNumbers, ComeOfAnAdditionToo) {
    WifiHostSettings& settings = loaded.load("0\thome\tany\t\n4\twork\tany\t\n");
    loaded.standIn.on({"-iwlan0", "add_network"}).prints("5\n");
    loaded.answer("OK\n");
    EXPECT_TRUE(settings.addNetwork("wlan0", "caf\xc3\xa9"));
    EXPECT_EQ(settings.saveNetworkSettings(), 1);
    nowListed("0\thome\tany\t\n1\twork\tany\t\n2\tcaf\\xc3\\xa9\tany\t\n");
    EXPECT_TRUE(settings.connectNetwork("wlan0", "caf\xc3\xa9"));
    EXPECT_TRUE(settings.removeNetwork("wlan0", "work"));
    EXPECT_THAT(loaded.commands(),
                ElementsAre(LIST, "-iwlan0 select 2", "-iwlan0 remove_network 1"));
}

// A network that needs a key and has none is left out of the file.
// ID-2
TEST_F(StaleNumbers, ComeOfAKeyManagementWithoutItsKey) {
    WifiHostSettings& settings = loaded.load("0\thome\tany\t\n1\twork\tany\t\n2\tcafe\tany\t\n");
    loaded.answer("OK\n");
    {
        const SettingsLock lock(settings);
        settings.getNetwork("wlan0", "home")->setKeyManagement(KEY_MGMT_WPA_PSK);
    }
    EXPECT_EQ(settings.saveNetworkSettings(), 1);
    nowListed("0\twork\tany\t\n1\tcafe\tany\t\n");
    EXPECT_TRUE(settings.connectNetwork("wlan0", "work"));
    {
        const SettingsLock lock(settings);
        settings.getNetwork("wlan0", "work")->setEAPIdentity("me");
        settings.getNetwork("wlan0", "home")->setPriority(3);
    }
    EXPECT_EQ(settings.saveNetworkSettings(), 0) << "home is gone";
    EXPECT_FALSE(settings.connectNetwork("wlan0", "home"));
    EXPECT_THAT(loaded.commands(),
                ElementsAre(LIST, "-iwlan0 select 0", LIST, "-iwlan0 set_network 0 identity \"me\"",
                            "-iwlan0 save_config", "-iwlan0 reconfigure", LIST));
    const SettingsLock lock(settings);
    EXPECT_TRUE(settings.getNetwork("wlan0", "home")->getPriorityDirty());
}

// ID-2
TEST_F(StaleNumbers, ComeOfAKeyThatTheSupplicantRefuses) {
    WifiHostSettings& settings = loaded.load("0\thome\tany\t\n1\twork\tany\t\n");
    loaded.standIn.on({"-iwlan0", "set_network", "0", "psk", "\"short\""}).prints("FAIL\n");
    loaded.answer("OK\n");
    for (const char* const ssid : {"home", "work"}) {
        const SettingsLock lock(settings);
        settings.getNetwork("wlan0", ssid)->setKeyManagement(KEY_MGMT_WPA_PSK);
        settings.getNetwork("wlan0", ssid)
            ->setPsk(std::string(ssid) == "home" ? "short" : "long enough");
    }
    EXPECT_EQ(settings.saveNetworkSettings(), 1);
    nowListed("0\twork\tany\t\n");
    EXPECT_TRUE(settings.connectNetwork("wlan0", "work"));
    EXPECT_THAT(loaded.commands(), ElementsAre(LIST, "-iwlan0 select 0"));
}

TEST_F(StaleNumbers, DoNotComeOfAKeyManagementWithItsKey) {
    WifiHostSettings& settings = loaded.load("0\thome\tany\t\n1\twork\tany\t\n");
    loaded.answer("OK\n");
    {
        const SettingsLock lock(settings);
        settings.getNetwork("wlan0", "home")->setKeyManagement(KEY_MGMT_WPA_PSK);
        settings.getNetwork("wlan0", "home")->setPsk("long enough");
    }
    EXPECT_EQ(settings.saveNetworkSettings(), 1);
    loaded.standIn.reset();
    loaded.answer("OK\n");
    EXPECT_TRUE(settings.connectNetwork("wlan0", "work"));
    EXPECT_THAT(loaded.commands(), ElementsAre("-iwlan0 select 1"));
}

// The gap that a removal left is there after a reload; the file still has what was removed.
TEST_F(StaleNumbers, ComeOfARemovalBeforeAReload) {
    for (const char* const gone : {"home", "cafe"}) {
        SCOPED_TRACE(gone);
        const bool isFirst = std::string(gone) == "home";
        WifiHostSettings& settings =
            loaded.load("0\thome\tany\t\n1\twork\tany\t\n2\tcafe\tany\t\n");
        loaded.answer("OK\n");
        EXPECT_TRUE(settings.removeNetwork("wlan0", gone));
        loaded.scriptLoad(isFirst ? "1\twork\tany\t\n2\tcafe\tany\t\n"
                                  : "0\thome\tany\t\n1\twork\tany\t\n");
        EXPECT_TRUE(settings.refreshAllSettings());
        loaded.standIn.reset();
        loaded.answer("OK\n");
        {
            const SettingsLock lock(settings);
            settings.getNetwork("wlan0", isFirst ? "cafe" : "home")->setPriority(3);
        }
        EXPECT_EQ(settings.saveNetworkSettings(), 1);
        nowListed(isFirst ? "0\twork\tany\t\n1\tcafe\tany\t\n"
                          : "0\thome\tany\t\n1\twork\tany\t\n");
        EXPECT_TRUE(settings.connectNetwork("wlan0", "work"));
        EXPECT_THAT(loaded.commands(),
                    ElementsAre(LIST, isFirst ? "-iwlan0 select 0" : "-iwlan0 select 1"));
    }
}

TEST_F(StaleNumbers, AreNotThoseOfALongSsid) {
    const std::string ssid = platwifi::printedSsid(std::string(32, '\xd0'));
    WifiHostSettings& settings = loaded.load("0\thome\tany\t\n1\t" + ssid + "\tany\t\n");
    loaded.answer("OK\n");
    ASSERT_THAT(ssidsOf(settings), ElementsAre(ssid, "home"));
    {
        const SettingsLock lock(settings);
        settings.getNetwork("wlan0", ssid.c_str())->setPriority(3);
    }
    EXPECT_EQ(settings.saveNetworkSettings(), 1);
    EXPECT_TRUE(settings.connectNetwork("wlan0", ssid.c_str()));
    EXPECT_TRUE(settings.removeNetwork("wlan0", ssid.c_str()));
    EXPECT_THAT(loaded.commands(),
                ElementsAre("-iwlan0 set_network 1 priority 3", "-iwlan0 save_config",
                            "-iwlan0 reconfigure", "-iwlan0 select 1", "-iwlan0 remove_network 1"));
}

// An id that does not fit would be that of another network; what is no number, that of network 0.
// LOAD-6
TEST_F(StaleNumbers, AreThoseThatALoadCannotHold) {
    for (const char* const id : {"256", "300", "x", "-1"}) {
        SCOPED_TRACE(id);
        const std::string lines = std::string("0\thome\tany\t\n") + id + "\twork\tany\t\n";
        WifiHostSettings& settings = loaded.load(lines);
        nowListed(lines);
        {
            const SettingsLock lock(settings);
            settings.getNetwork("wlan0", "work")->setPriority(3);
        }
        EXPECT_FALSE(settings.connectNetwork("wlan0", "work"));
        EXPECT_FALSE(settings.removeNetwork("wlan0", "work"));
        EXPECT_EQ(settings.saveNetworkSettings(), 0);
        EXPECT_THAT(loaded.commands(), ElementsAre(LIST, LIST, LIST));
        EXPECT_TRUE(settings.connectNetwork("wlan0", "home"));
        EXPECT_EQ(loaded.commands().back(), "-iwlan0 select 0");
    }
}

TEST_F(StaleNumbers, DoNotComeOfAnEditAlone) {
    WifiHostSettings& settings = loaded.load("0\thome\tany\t\n1\twork\tany\t\n");
    loaded.answer("OK\n");
    {
        const SettingsLock lock(settings);
        settings.getNetwork("wlan0", "work")->setPriority(3);
    }
    EXPECT_EQ(settings.saveNetworkSettings(), 1);
    loaded.standIn.reset();
    loaded.answer("OK\n");
    EXPECT_TRUE(settings.connectNetwork("wlan0", "work"));
    EXPECT_THAT(loaded.commands(), ElementsAre("-iwlan0 select 1"));
}

} // namespace
