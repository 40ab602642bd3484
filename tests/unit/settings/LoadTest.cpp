#include "LoadedSettings.h"

#include "model/NetworkFields.h"
#include "settings/WifiHostSettings.h"
#include "settings/replies/PrintedSsid.h"
#include "support/FieldTable.h"
#include "support/Lines.h"
#include "unit/model/NetworkRows.h"

#include <atomic>
#include <thread>

using platwifi::Field;
using test::Commands;
using testing::Each;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;
using testing::StartsWith;

namespace {

class Load : public test::SettingsTest {
protected:
    /// The commands of a load of these networks.
    Commands commandsOfLoading(const std::string& networks,
                               const std::string& status = "wpa_state=INACTIVE\n") {
        scriptLoad(networks, status);
        reload();
        return commands();
    }

    /// Whether a save has nothing to do.
    bool isListValid() {
        acceptAll();
        return commandsOf([] { settings().saveNetworkSettings(); }).empty();
    }

    static void expectNotReceived(const WifiNetwork& network) {
        EXPECT_STREQ(network.getBssid(), "00:00:00:00:00:00");
        EXPECT_EQ(network.getChannel(), 0U);
        EXPECT_EQ(network.getStrength(), 0U);
        EXPECT_EQ(network.getNetworkMode(), NETWORK_MODE_UNKNOWN);
    }
};

TEST_F(Load, RunsItsCommandsInOrder) {
    value("4", "key_mgmt", "NONE");
    value("4", "wep_tx_keyidx", "1");
    const Commands commands = commandsOfLoading("0\thome\tany\t[CURRENT]\n4\told\tany\t\n");
    const Commands values(commands.begin() + 2, commands.end() - 2);
    EXPECT_THAT(Commands(commands.begin(), commands.begin() + 2),
                ElementsAre("interface", "-iwlan0 list_networks"));
    EXPECT_THAT(Commands(commands.end() - 2, commands.end()),
                ElementsAre("-iwlan0 scan_results", "-iwlan0 status"));
    ASSERT_THAT(values, SizeIs(27 + 32)) << "the second one has WEP keys";
    EXPECT_THAT(Commands(values.begin(), values.begin() + 27),
                Each(StartsWith("-iwlan0 get_network 0 ")));
    EXPECT_THAT(Commands(values.begin() + 27, values.end()),
                Each(StartsWith("-iwlan0 get_network 4 ")));
}

TEST_F(Load, TakesEveryValueAsTheClientHasIt) {
    struct Row {
        Field field;
        const char* value;
        unsigned int number;
    };
    const Row numbers[] = {
        {Field::KEY_MANAGEMENT, "NONE", 1},
        {Field::NETWORK_MODE, "1", 1},
        {Field::PRIORITY, "9", 9},
        {Field::PAIRWISE_CIPHERS, "CCMP", 4},
        {Field::GROUP_CIPHERS, "CCMP TKIP", 6},
        {Field::PROTOCOL, "RSN", 2},
        {Field::EAP_MODES, "TLS", 1},
        {Field::AUTH_ALG, "OPEN", 1},
        {Field::WEP_INDEX, "3", 3},
        {Field::SSID_BROADCASTED, "0", 1},
    };
    const auto isLoadedText = [](const test::FieldRow& row) {
        return row.key && test::isText(row) && row.field != Field::SSID;
    };
    for (const Row& row : numbers)
        value("7", test::rowOf(row.field).key, row.value);
    for (const test::FieldRow& row : test::fieldRows()) {
        if (isLoadedText(row))
            value("7", row.key, std::string("\"the ") + row.key + "\"");
    }
    value("7", "disabled", "0");
    load("7\thome\tany\t[DISABLED]\n");
    const auto& fields = platwifi::NetworkFields::of(*network("home"));
    for (const Row& row : numbers)
        EXPECT_EQ(fields.number(row.field), row.number) << row.value;
    for (const test::FieldRow& row : test::fieldRows()) {
        if (isLoadedText(row)) {
            EXPECT_EQ(fields.text(row.field), std::string("the ") + row.key);
        }
    }
    EXPECT_EQ(network("home")->getNetworkId(), 7);
    EXPECT_EQ(statusOf("home"), NETWORK_STATUS_DISABLED);
}

TEST_F(Load, GivesANetworkWithoutValuesWhatTheSupplicantTakesThen) {
    load("0\thome\tany\t\n");
    EXPECT_STREQ(network("home")->getBssid(), "00:00:00:00:00:00");
    EXPECT_EQ(network("home")->getKeyManagement(), 6U);
    EXPECT_EQ(network("home")->getPairwiseCiphers(), 6U);
    EXPECT_EQ(network("home")->getGroupCiphers(), 30U);
    EXPECT_EQ(network("home")->getProtocol(), 3U);
    EXPECT_EQ(network("home")->getNetworkMode(), NETWORK_MODE_UNKNOWN);
}

// LOAD-7
TEST_F(Load, TakesTheBssidOfTheListOnlyUntilItsValueIsRead) {
    load("0\thome\t02:11:22:33:44:55\t\n");
    EXPECT_STREQ(network("home")->getBssid(), "00:00:00:00:00:00");
}

TEST_F(Load, KeepsValuesOfOneNetworkFromTheNext) {
    value("0", "psk", "secret");
    value("0", "identity", "me");
    value("0", "key_mgmt", "WPA-NONE");
    load("0\tfirst\tany\t\n1\tsecond\tany\t\n");
    EXPECT_STREQ(network("first")->getPsk(), "secret");
    EXPECT_EQ(network("first")->getKeyManagement(), KEY_MGMT_WPA_NONE);
    EXPECT_EQ(network("second")->getPsk(), nullptr);
    EXPECT_EQ(network("second")->getEAPIdentity(), nullptr);
    EXPECT_EQ(network("second")->getKeyManagement(), 6U);
}

TEST_F(Load, TakesValuesOf127Characters) {
    value("0", "identity", std::string(127, 'i'));
    value("0", "password", std::string(128, 'p'));
    value("0", "ca_cert", std::string(300, 'c'));
    value("0", "ca_path", "\"" + std::string(125, 'd') + "\"");
    value("0", "phase1", "\"" + std::string(126, 'e') + "\"");
    load("0\thome\tany\t\n");
    EXPECT_EQ(network("home")->getEAPIdentity(), std::string(127, 'i'));
    EXPECT_EQ(network("home")->getEAPPassword(), std::string(127, 'p')) << "cut";
    EXPECT_EQ(network("home")->getCACertificate(), std::string(127, 'c')) << "cut";
    EXPECT_EQ(network("home")->getCACertificateDir(), std::string(125, 'd'));
    EXPECT_EQ(network("home")->getPhase1Step(), nullptr) << "its last quote is cut off";
}

// LOAD-1
TEST_F(Load, HoldsCleanNetworksInAValidListTheLastOneFirst) {
    value("1", "priority", "3");
    load("0\ta\tany\t\n1\tb\tany\t\n2\tc\tany\t\n");
    EXPECT_THAT(ssids(), ElementsAre("c", "b", "a"));
    for (const char* ssid : {"a", "b", "c"})
        EXPECT_THAT(test::dirtyOf(*network(ssid)), IsEmpty()) << ssid;
    EXPECT_TRUE(isListValid());
}

TEST_F(Load, HoldsWhatIsThereNowAfterARefresh) {
    load("0\ta\tany\t[CURRENT]\n1\tb\tany\t\n", "wpa_state=COMPLETED\n");
    refreshAll("0\tb\tany\t\n", "");
    EXPECT_THAT(ssids(), ElementsAre("b"));
    EXPECT_EQ(current(), "none");
    EXPECT_EQ(state(), WPA_STATE_UNKNOWN);
}

// LOAD-14
TEST_F(Load, OfAnEmptyListAsksForNoScanButForTheStatus) {
    EXPECT_THAT(commandsOfLoading("", "ssid=home\nwpa_state=SCANNING\n"),
                ElementsAre("interface", "-iwlan0 list_networks", "-iwlan0 status"));
    EXPECT_THAT(ssids(), IsEmpty());
    EXPECT_EQ(state(), WPA_STATE_SCANNING);
    EXPECT_TRUE(isListValid());
}

TEST_F(Load, AsksForTheScanOnceThereIsALineEvenOfNoNetwork) {
    EXPECT_THAT(commandsOfLoading("0\n"), ElementsAre("interface", "-iwlan0 list_networks",
                                                      "-iwlan0 scan_results", "-iwlan0 status"));
    EXPECT_THAT(ssids(), IsEmpty());
}

// LOAD-8
TEST_F(Load, NamesANetworkWithoutSsidAndTakesItForCurrent) {
    load("0\tany\t[CURRENT]\n", "wpa_state=SCANNING\n");
    EXPECT_THAT(ssids(), ElementsAre("SSID N/A"));
    EXPECT_STREQ(network("SSID N/A")->getBssid(), "00:00:00:00:00:00");
    EXPECT_EQ(current(), "SSID N/A");
    EXPECT_EQ(statusOf("SSID N/A"), NETWORK_STATUS_CONNECTING);
    load("0\t\tany\t[DISABLED]\n1\t\tany\t\n");
    EXPECT_THAT(ssids(), ElementsAre("SSID N/A")) << "once, as any other";
}

// LOAD-4
TEST_F(Load, KeepsSsidsAsTheClientPrintsThem) {
    load("0\t\\xe4\\\\ \\\"x\\\"\tany\t\n");
    EXPECT_THAT(ssids(), ElementsAre("\\xe4\\\\ \\\"x\\\""));
}

// LOAD-9
TEST_F(Load, DropsLinesOfNoNetworkAlone) {
    load("0\ta\tany\t\n1\n2\tlonely\n\n3\tb\tany\t\n");
    EXPECT_THAT(ssids(), ElementsAre("b", "a"));
}

// LOAD-9
TEST_F(Load, TakesTheFirstOfTwoNetworksWithOneSsid) {
    value("0", "priority", "1");
    value("1", "priority", "2");
    EXPECT_THAT(commandsOfLoading("0\thome\tany\t\n1\thome\tany\t\n"), SizeIs(2 + 27 + 27 + 2))
        << "the other one was read, too";
    EXPECT_THAT(ssids(), ElementsAre("home"));
    EXPECT_EQ(network("home")->getNetworkId(), 0);
    EXPECT_EQ(network("home")->getPriority(), 1U);
}

// The second one is current until the list refuses it; nothing may point at it then.
TEST_F(Load, ForgetsACurrentNetworkThatTheListRefuses) {
    load("0\thome\tany\t\n1\thome\tany\t[CURRENT]\n", "wpa_state=COMPLETED\n");
    EXPECT_EQ(current(), "none");
    EXPECT_EQ(statusOf("home"), NETWORK_STATUS_ENABLED);
}

TEST_F(Load, FindsTheNetworkThatStaysByTheStatus) {
    load("0\thome\tany\t\n1\thome\tany\t[CURRENT]\n", "ssid=home\nwpa_state=COMPLETED\n");
    EXPECT_EQ(current(), "home");
    EXPECT_EQ(network("home")->getNetworkId(), 0);
    EXPECT_EQ(statusOf("home"), NETWORK_STATUS_CONNECTED);
}

// LOAD-6
TEST_F(Load, AsksForANumberAbove255ByItsLast8Bits) {
    EXPECT_EQ(commandsOfLoading("300\thome\tany\t\n")[2], "-iwlan0 get_network 44 disabled");
    EXPECT_EQ(network("home")->getNetworkId(), 44);
}

// Lines without a network count as well, and cost no commands here.
// LOAD-1
TEST_F(Load, TakesTheFirst32LinesOfTheList) {
    std::string list;
    for (int i = 0; i < 31; ++i)
        list += std::to_string(i) + "\n";
    list += "31\tlast\tany\t\n";
    for (const std::string& networks : {list, list + "32\tnot any more\tany\t\n" + list}) {
        EXPECT_THAT(commandsOfLoading(networks), SizeIs(2 + 27 + 2));
        EXPECT_THAT(ssids(), ElementsAre("last"));
    }
}

// What the client prints for 8 emoji, or for 16 Cyrillic letters: more than one piece of a line holds.
const std::string LONG_SSIDS[] = {
    platwifi::printedSsid("\xf0\x9f\x98\x80\xf0\x9f\x98\x81\xf0\x9f\x98\x82\xf0\x9f\x98\x83"
                          "\xf0\x9f\x98\x84\xf0\x9f\x98\x85\xf0\x9f\x98\x86\xf0\x9f\x98\x87"),
    platwifi::printedSsid("\xd0\xb0\xd0\xb1\xd0\xb2\xd0\xb3\xd0\xb4\xd0\xb5\xd0\xb6\xd0\xb7"
                          "\xd0\xb8\xd0\xb9\xd0\xba\xd0\xbb\xd0\xbc\xd0\xbd\xd0\xbe\xd0\xbf"),
};

// LOAD-2
TEST_F(Load, TakesALongSsidWholeAndNoRestForANetwork) {
    for (const std::string& ssid : LONG_SSIDS) {
        ASSERT_EQ(ssid.size(), 128U);
        load("0\thome\tany\t\n7\t" + ssid + "\tany\t[CURRENT]\n8\twork\tany\t\n",
             "ssid=" + ssid + "\nid=7\nwpa_state=COMPLETED\n");
        ASSERT_THAT(ssids(), ElementsAre("work", ssid, "home"));
        EXPECT_EQ(network(ssid)->getNetworkId(), 7);
        EXPECT_EQ(statusOf(ssid), NETWORK_STATUS_CONNECTED);
        EXPECT_EQ(current(), ssid);
        EXPECT_EQ(network("work")->getNetworkId(), 8);
    }
}

// LOAD-1
TEST_F(Load, TakesTheFirst32LinesWhateverTheirLength) {
    std::string list;
    for (int i = 10; i < 41; ++i)
        list += std::to_string(i) + "\n";
    for (const std::string& ssid : LONG_SSIDS)
        list += std::to_string(ssid == LONG_SSIDS[0] ? 41 : 42) + "\t" + ssid + "\tany\t\n";
    load(list);
    EXPECT_THAT(ssids(), ElementsAre(LONG_SSIDS[0])) << "the second one is in line 33";
}

// SSIDs of the list hold no tabs: there is nothing to read in a line that is one.
// LOAD-21
TEST_F(Load, ReadsNothingFromScanLinesThatAreNotTheSsidAsAWhole) {
    load("0\tlab\tany\t\n", "", "02:00:00:00:01:00\t2412\t185\t[IBSS]\tlab\nlab\nlab\t2412\t185\n");
    expectNotReceived(*network("lab"));
}

// LOAD-3
TEST_F(Load, KeepsTwoAdaptersAndUsesTheFirst) {
    standIn.on({"interface"}).prints(test::ADAPTER_HEADER + "wlan7\nwlan0\nwlan1\n");
    answer("");
    reload();
    EXPECT_THAT(commands(), ElementsAre("interface", "-iwlan7 list_networks", "-iwlan7 status"));
    platwifi::ReplyLines names(2);
    EXPECT_TRUE(settings().getWifiAdapters(names.data(), 2, &names.count));
    EXPECT_THAT(test::toStrings(names), ElementsAre("wlan7", "wlan0"));
}

TEST_F(Load, LeavesNoLockHeld) {
    load("0\thome\tany\t[CURRENT]\n", "ssid=home\nwpa_state=COMPLETED\n", "home\n");
    expectNoLockHeld();
}

TEST_F(Load, IsSeenAsAWholeUnderTheLock) {
    value("0", "identity", "me");
    scriptLoad("0\thome\tany\t[CURRENT]\n", "ssid=home\nwpa_state=COMPLETED\n");
    reload();
    std::atomic<bool> done{false};
    std::thread reader([&] {
        while (!done) {
            {
                const platwifi::SettingsLock lock(settings());
                EXPECT_EQ(ssids().size(), 1U);
                EXPECT_EQ(statusOf("home"), NETWORK_STATUS_CONNECTED);
                EXPECT_STREQ(network("home")->getEAPIdentity(), "me");
            }
            std::this_thread::yield();
        }
    });
    for (int i = 0; i < 5; ++i)
        settings().refreshAllSettings();
    done = true;
    reader.join();
}

} // namespace
