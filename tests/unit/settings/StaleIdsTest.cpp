// The ids of networks after a save, which the supplicant may have numbered anew.

#include "LoadedSettings.h"

#include "settings/replies/PrintedSsid.h"

using test::Commands;
using test::LIST_NETWORKS;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

const std::string TWO = "0\thome\tany\t\n1\twork\tany\t\n";
const std::string THREE = TWO + "2\tcafe\tany\t\n";

class StaleIds : public test::SettingsTest {
protected:
    /// Loads these networks, which the client lists afterwards. It accepts every command.
    void loadAndList(const std::string& networks) {
        load(networks);
        list(networks);
    }

    // Saved without "home", which was the first of three.
    void makeStale() {
        loadAndList(THREE);
        EXPECT_TRUE(settings().removeNetwork("wlan0", "home"));
        save();
        EXPECT_THAT(commands(), ElementsAre("-iwlan0 remove_network 0", "-iwlan0 save_config",
                                            "-iwlan0 reconfigure"));
        list("0\twork\tany\t\n1\tcafe\tany\t\n");
    }

    static void save(int result = 1) { EXPECT_EQ(settings().saveNetworkSettings(), result); }

    static bool connect(const char* ssid) { return settings().connectNetwork("wlan0", ssid); }

    /// The commands of a connection with "work".
    Commands connecting() const {
        return commandsOf([] { EXPECT_TRUE(connect("work")); });
    }
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

class OperationOnStaleIds : public StaleIds, public testing::WithParamInterface<Operation> {};

// ID-1
TEST_P(OperationOnStaleIds, ConfirmsThemOnce) {
    makeStale();
    EXPECT_TRUE(GetParam().run(settings()));
    Commands expected = GetParam().commands;
    expected.insert(expected.begin(), LIST_NETWORKS);
    EXPECT_EQ(commands(), expected);
    EXPECT_THAT(commandsOf([] { connect("cafe"); }), ElementsAre("-iwlan0 select 1"))
        << "confirmed for all networks";
}

TEST_P(OperationOnStaleIds, FailsWithoutItsCommandWhenTheSupplicantDoesNotAnswer) {
    makeStale();
    list("", 255);
    EXPECT_FALSE(GetParam().run(settings()));
    EXPECT_THAT(commands(), ElementsAre(LIST_NETWORKS));
    EXPECT_THAT(ssids(), ElementsAre("cafe", "work"));
    list("0\twork\tany\t\n1\tcafe\tany\t\n");
    EXPECT_TRUE(GetParam().run(settings())) << "asked again";
}

INSTANTIATE_TEST_SUITE_P(Every, OperationOnStaleIds, testing::ValuesIn(OPERATIONS),
                         [](const auto& test) { return std::string(test.param.name); });

// ID-3
TEST_F(StaleIds, AreNotUsedForANetworkThatIsNotListed) {
    makeStale();
    list("0\tcafe\tany\t\n");
    EXPECT_FALSE(connect("work"));
    EXPECT_FALSE(settings().removeNetwork("wlan0", "work"));
    EXPECT_TRUE(connect("cafe"));
    EXPECT_THAT(commands(),
                ElementsAre(LIST_NETWORKS, LIST_NETWORKS, LIST_NETWORKS, "-iwlan0 select 0"));
    list("0\tcafe\tany\t\n4\twork\tany\t\n");
    EXPECT_TRUE(connect("work"));
    EXPECT_TRUE(settings().removeNetwork("wlan0", "work"));
    EXPECT_THAT(commands(),
                ElementsAre(LIST_NETWORKS, "-iwlan0 select 4", "-iwlan0 remove_network 4"));
}

// ID-6
TEST_F(StaleIds, LetRoamingEnableTheNetworksThatAreListed) {
    makeStale();
    list("0\tcafe\tany\t\n");
    EXPECT_TRUE(settings().roamNetworks("wlan0"));
    EXPECT_THAT(commands(), ElementsAre(LIST_NETWORKS, "-iwlan0 disconnect",
                                        "-iwlan0 set_network 0 disabled 0", "-iwlan0 reassociate"));
}

TEST_F(StaleIds, AreConfirmedAtTheAdapterThatTheNetworksAreOf) {
    makeStale();
    EXPECT_TRUE(settings().connectNetwork("wlan1", "cafe"));
    EXPECT_THAT(commands(), ElementsAre(LIST_NETWORKS, "-iwlan1 select 1"));
}

TEST_F(StaleIds, AreConfirmedBeforeAnythingElseIsRun) {
    makeStale();
    EXPECT_TRUE(settings().disconnectNetwork("wlan0", "cafe"));
    EXPECT_THAT(commands(), ElementsAre("-iwlan0 disconnect")) << "it names no network";
    EXPECT_THAT(connecting(),
                ElementsAre(LIST_NETWORKS, "-iwlan0 reassociate", "-iwlan0 select 0"));
}

TEST_F(StaleIds, AreNotAskedForByOperationsThatUseNone) {
    makeStale();
    EXPECT_TRUE(settings().removeNetwork("wlan0", "unknown"));
    EXPECT_FALSE(connect("unknown"));
    EXPECT_TRUE(settings().disconnectNetwork("wlan0", "unknown"));
    EXPECT_FALSE(settings().addNetwork("wlan0", "cafe"));
    EXPECT_THAT(commands(), IsEmpty());
}

TEST_F(StaleIds, AreNotAskedForWithoutNetworks) {
    loadAndList("0\thome\tany\t\n");
    EXPECT_TRUE(settings().removeNetwork("wlan0", "home"));
    save();
    EXPECT_THAT(commandsOf([] { EXPECT_TRUE(settings().roamNetworks("wlan0")); }),
                ElementsAre("-iwlan0 disconnect", "-iwlan0 reassociate"));
}

TEST_F(StaleIds, AreFreshAfterAReload) {
    makeStale();
    refreshAll("3\twork\tany\t\n");
    acceptAll();
    EXPECT_THAT(connecting(), ElementsAre("-iwlan0 select 3"));
}

TEST_F(StaleIds, ComeOfAnAdditionToo) {
    load("0\thome\tany\t\n4\twork\tany\t\n");
    standIn.on({"-iwlan0", "add_network"}).prints("5\n");
    answer("OK\n");
    EXPECT_TRUE(settings().addNetwork("wlan0", "caf\xc3\xa9"));
    save();
    list("0\thome\tany\t\n1\twork\tany\t\n2\tcaf\\xc3\\xa9\tany\t\n");
    EXPECT_TRUE(connect("caf\xc3\xa9"));
    EXPECT_TRUE(settings().removeNetwork("wlan0", "work"));
    EXPECT_THAT(commands(),
                ElementsAre(LIST_NETWORKS, "-iwlan0 select 2", "-iwlan0 remove_network 1"));
}

// A network that needs a key and has none is left out of the file.
// ID-2
TEST_F(StaleIds, ComeOfAKeyManagementWithoutItsKey) {
    loadAndList(THREE);
    network("home")->setKeyManagement(KEY_MGMT_WPA_PSK);
    save();
    list("0\twork\tany\t\n1\tcafe\tany\t\n");
    EXPECT_TRUE(connect("work"));
    network("work")->setEAPIdentity("me");
    network("home")->setPriority(3);
    save(0); // home is gone
    EXPECT_FALSE(connect("home"));
    EXPECT_THAT(commands(),
                ElementsAre(LIST_NETWORKS, "-iwlan0 select 0", LIST_NETWORKS,
                            "-iwlan0 set_network 0 identity \"me\"", "-iwlan0 save_config",
                            "-iwlan0 reconfigure", LIST_NETWORKS));
    EXPECT_TRUE(network("home")->getPriorityDirty());
}

// ID-2
TEST_F(StaleIds, ComeOfAKeyThatTheSupplicantRefuses) {
    load(TWO);
    standIn.on({"-iwlan0", "set_network", "0", "psk", "\"short\""}).prints("FAIL\n");
    answer("OK\n");
    for (const char* const ssid : {"home", "work"})
        network(ssid)->setKeyManagement(KEY_MGMT_WPA_PSK);
    network("home")->setPsk("short");
    network("work")->setPsk("long enough");
    save();
    list("0\twork\tany\t\n");
    EXPECT_THAT(connecting(), ElementsAre(LIST_NETWORKS, "-iwlan0 select 0"));
}

TEST_F(StaleIds, DoNotComeOfAKeyManagementWithItsKeyNorOfAnotherEdit) {
    loadAndList(TWO);
    network("home")->setKeyManagement(KEY_MGMT_WPA_PSK);
    network("home")->setPsk("long enough");
    save();
    EXPECT_THAT(connecting(), ElementsAre("-iwlan0 select 1"));
    network("work")->setPriority(3);
    save();
    EXPECT_THAT(connecting(), ElementsAre("-iwlan0 select 1"));
}

// The gap that a removal left is there after a reload; the file still has what was removed.
TEST_F(StaleIds, ComeOfARemovalBeforeAReload) {
    struct Row {
        const char* removed;
        std::string loaded; ///< after the removal
        std::string saved;  ///< the list after the save
        const char* selected;
    };
    const Row rows[] = {{"home", "1\twork\tany\t\n2\tcafe\tany\t\n",
                         "0\twork\tany\t\n1\tcafe\tany\t\n", "-iwlan0 select 0"},
                        {"cafe", TWO, TWO, "-iwlan0 select 1"}};
    for (const Row& row : rows) {
        SCOPED_TRACE(row.removed);
        loadAndList(THREE);
        EXPECT_TRUE(settings().removeNetwork("wlan0", row.removed));
        refreshAll(row.loaded);
        acceptAll();
        network("work")->setPriority(3);
        save();
        list(row.saved);
        EXPECT_THAT(connecting(), ElementsAre(LIST_NETWORKS, row.selected));
    }
}

TEST_F(StaleIds, AreNotThoseOfALongSsid) {
    const std::string ssid = platwifi::printedSsid(std::string(32, '\xd0'));
    loadAndList("0\thome\tany\t\n1\t" + ssid + "\tany\t\n");
    ASSERT_THAT(ssids(), ElementsAre(ssid, "home"));
    network(ssid)->setPriority(3);
    save();
    EXPECT_TRUE(connect(ssid.c_str()));
    EXPECT_TRUE(settings().removeNetwork("wlan0", ssid.c_str()));
    EXPECT_THAT(commands(),
                ElementsAre("-iwlan0 set_network 1 priority 3", "-iwlan0 save_config",
                            "-iwlan0 reconfigure", "-iwlan0 select 1", "-iwlan0 remove_network 1"));
}

// An id that does not fit would be that of another network; what is no number, that of network 0.
// LOAD-6
TEST_F(StaleIds, AreThoseThatALoadCannotHold) {
    for (const std::string id : {"256", "300", "x", "-1"}) {
        SCOPED_TRACE(id);
        loadAndList("0\thome\tany\t\n" + id + "\twork\tany\t\n");
        network("work")->setPriority(3);
        EXPECT_FALSE(connect("work"));
        EXPECT_FALSE(settings().removeNetwork("wlan0", "work"));
        save(0);
        EXPECT_THAT(commands(), ElementsAre(LIST_NETWORKS, LIST_NETWORKS, LIST_NETWORKS));
        EXPECT_TRUE(connect("home"));
        EXPECT_EQ(commands().back(), "-iwlan0 select 0");
    }
}

} // namespace
