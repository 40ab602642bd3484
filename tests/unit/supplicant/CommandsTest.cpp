#include "supplicant/WifiUtil.h"

#include "support/BlockedFile.h"
#include "support/Leftovers.h"
#include "support/StandIn.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstring>
#include <functional>
#include <iterator>
#include <string>
#include <vector>

using test::Arguments;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

constexpr const char* CLIENT = "/proc/boot/wpa_cli";
const std::string STAMP = "12:34:56.789: ";

enum class Success { BY_REPLY, BY_EXIT_STATUS };

struct Command {
    const char* name;
    Arguments call; // behind the interface option
    const char* resultPrefix;
    Success success;
    std::function<bool(WifiUtil&)> run;
    std::string accepted = "OK"; // a reply that is no refusal
};

const Command COMMANDS[] = {
    {"setNetworkValue",
     {"set_network", "7", "key_mgmt", "WPA-PSK"},
     "/tmp/wpa_cli_set_network_result_",
     Success::BY_REPLY,
     [](WifiUtil& util) { return util.setNetworkValue("wlan0", 7, "key_mgmt", "WPA-PSK"); }},
    {"getNetworkValue",
     {"get_network", "7", "ssid"},
     "/tmp/wpa_cli_get_network_result_",
     Success::BY_REPLY,
     [](WifiUtil& util) {
         char value[64];
         return util.getNetworkValue("wlan0", 7, "ssid", value, sizeof(value));
     }},
    {"connectToNetwork",
     {"select", "7"},
     "/tmp/wpa_cli_connect_result_",
     Success::BY_EXIT_STATUS,
     [](WifiUtil& util) { return util.connectToNetwork("wlan0", 7); }},
    {"disconnectFromNetwork",
     {"disconnect"},
     "/tmp/wpa_cli_disconnect_result_",
     Success::BY_EXIT_STATUS,
     [](WifiUtil& util) { return util.disconnectFromNetwork("wlan0", 7); }},
    {"removeNetwork",
     {"remove_network", "7"},
     "/tmp/wpa_cli_remove_result_",
     Success::BY_REPLY,
     [](WifiUtil& util) { return util.removeNetwork("wlan0", 7); }},
    {"saveConfiguration",
     {"save_config"},
     "/tmp/wpa_cli_save_result_",
     Success::BY_REPLY,
     [](WifiUtil& util) { return util.saveConfiguration("wlan0"); }},
    {"reloadConfiguration",
     {"reconfigure"},
     "/tmp/wpa_cli_reconfigure_result_",
     Success::BY_REPLY,
     [](WifiUtil& util) { return util.reloadConfiguration("wlan0"); }},
    {"forceReassociation",
     {"reassociate"},
     "/tmp/wpa_cli_reassociate_result_",
     Success::BY_REPLY,
     [](WifiUtil& util) { return util.forceReassociation("wlan0"); }},
    {"executeCustom",
     {"bssid", "7", "02:00:00:00:01:00"},
     "/tmp/wpa_custom_result_",
     Success::BY_REPLY,
     [](WifiUtil& util) { return util.executeCustom("wlan0", 7, "bssid", "02:00:00:00:01:00"); }},
    {"executeCustomWithoutValue",
     {"enable_network", "7"},
     "/tmp/wpa_custom_result_",
     Success::BY_REPLY,
     [](WifiUtil& util) { return util.executeCustom("wlan0", 7, "enable_network", nullptr); }},
    {"createNetwork",
     {"add_network"},
     "/tmp/wpa_cli_add_result_",
     Success::BY_REPLY,
     [](WifiUtil& util) {
         unsigned char id = 0;
         return util.createNetwork("wlan0", "home", &id);
     },
     "3"},
};

class ConfigurationCommand : public testing::TestWithParam<Command> {
protected:
    Arguments behindInterface() const {
        Arguments call{"-iwlan0"};
        call.insert(call.end(), GetParam().call.begin(), GetParam().call.end());
        return call;
    }

    bool runWith(const std::string& reply, int status = 0) {
        standIn.reset();
        standIn.on(behindInterface()).prints(reply).exits(status);
        standIn.on({"*"}).prints("OK\n"); // the later steps of createNetwork
        const test::Leftovers before = test::Leftovers::now();
        const bool result = GetParam().run(util);
        EXPECT_TRUE(test::Leftovers::now() == before);
        return result;
    }

    test::StandIn standIn;
    WifiUtil util;
};

TEST_P(ConfigurationCommand, RunsItsCommandLine) {
    EXPECT_TRUE(runWith("0\n"));
    Arguments call = behindInterface();
    call.insert(call.begin(), CLIENT);
    EXPECT_EQ(standIn.calls()[0], call);
}

// REPLY-3
TEST_P(ConfigurationCommand, DecidesByItsReplyOrByTheExitStatusAlone) {
    const bool byStatus = GetParam().success == Success::BY_EXIT_STATUS;
    const std::string& accepted = GetParam().accepted;
    EXPECT_TRUE(runWith(accepted + "\n"));
    EXPECT_TRUE(runWith(accepted)) << "without a line feed";
    EXPECT_EQ(runWith("FAIL\n"), byStatus);
    EXPECT_EQ(runWith("FAIL-BUSY\n"), byStatus);
    EXPECT_EQ(runWith("some FAIL text\n"), byStatus);
    EXPECT_EQ(runWith("Invalid command\n"), byStatus);
    EXPECT_EQ(runWith(""), byStatus) << "an empty file";
    EXPECT_EQ(runWith("\n" + accepted + "\n"), byStatus) << "an empty first line";
    EXPECT_TRUE(runWith(accepted + "\nFAIL\n")) << "the first line alone decides";
    EXPECT_FALSE(runWith(accepted + "\n", 1));
    EXPECT_FALSE(runWith(accepted + "\n", 255));
}

TEST_P(ConfigurationCommand, ChecksNoMoreThan127CharactersOfTheReply) {
    const bool byStatus = GetParam().success == Success::BY_EXIT_STATUS;
    const bool takesAnyText = GetParam().accepted == "OK";
    EXPECT_EQ(runWith(std::string(127, 'x') + "FAIL\n"), takesAnyText);
    EXPECT_EQ(runWith(std::string(123, 'x') + "FAIL\n"), byStatus);
}

TEST_P(ConfigurationCommand, UsesItsOwnResultFile) {
    standIn.on({"*"}).prints("0\n");
    {
        const test::BlockedFile blocked(test::resultPath(GetParam().resultPrefix));
        EXPECT_FALSE(GetParam().run(util));
        EXPECT_THAT(standIn.calls(), IsEmpty());
    }
    EXPECT_TRUE(GetParam().run(util));
}

INSTANTIATE_TEST_SUITE_P(Every, ConfigurationCommand, testing::ValuesIn(COMMANDS),
                         [](const auto& test) { return std::string(test.param.name); });

class Commands : public testing::Test {
protected:
    ~Commands() override { WifiUtil::unload(); }

    WifiUtil& stampingUtil() {
        standIn.on({"interface"}).prints("x\nx\n" + STAMP + "wlan0\n");
        WifiUtil* const instance = WifiUtil::getInstance();
        standIn.reset();
        return *instance;
    }

    test::StandIn standIn;
    WifiUtil util;
};

// VALUE-6
TEST_F(Commands, SendQuotedAndBareValues) {
    struct Row {
        const char* key;
        std::string value;
        std::string sent;
    };
    const std::string hex(64, 'a');
    const std::string passphrase(63, 'p');
    const Row rows[] = {
        {"wep_key1", "0123456789", "0123456789"},
        {"wep_key1", "hello", "\"hello\""},
        {"psk", hex, hex},
        {"psk", passphrase, "\"" + passphrase + "\""},
        {"psk", "\"quoted\"", "\"quoted\""},
        {"ssid", "\"ab", "\"ab"},
        {"key_mgmt", "WPA-PSK", "WPA-PSK"},
        {"identity", "", "\"\""},
        {"private_key2_passwd", "a b", "\"a b\""},
        {"pairwise", "CCMP TKIP", "CCMP TKIP"},
    };
    standIn.on({"*"}).prints("OK\n");
    for (const Row& row : rows) {
        EXPECT_TRUE(util.setNetworkValue("wlan0", 255, row.key, row.value.c_str()));
        EXPECT_EQ(standIn.calls().back(),
                  (Arguments{CLIENT, "-iwlan0", "set_network", "255", row.key, row.sent}));
    }
}

struct ValueReply {
    std::string reply;
    bool found;
    std::string value;
};

TEST_F(Commands, ReadValuesWithoutTheirQuotes) {
    const ValueReply rows[] = {
        {"\"home\"", true, "home"},
        {"WPA-PSK", true, "WPA-PSK"},
        {"FAIL\n", false, ""},
        {"", false, ""},
        {"0", true, "0"},
        {"02:00:00:00:01:00", true, "02:00:00:00:01:00"},
        {"a\"b", true, ""},
        {"\"two\nlines\"", true, ""},
        // Its closing quote is beyond the 127 characters that are read.
        {"\"" + std::string(200, 'x') + "\"", true, ""},
        {std::string(200, 'x'), true, std::string(127, 'x')},
    };
    for (const ValueReply& row : rows) {
        standIn.reset();
        standIn.on({"*"}).prints(row.reply);
        char value[200] = "untouched";
        EXPECT_EQ(util.getNetworkValue("wlan0", 0, "ssid", value, sizeof(value)), row.found)
            << row.reply;
        EXPECT_EQ(value, row.found ? row.value : "untouched") << row.reply;
    }
}

// REPLY-13
TEST_F(Commands, CopyAValueAsFarAsThereIsRoom) {
    standIn.on({"*"}).prints("\"abcdef\"");
    char value[8];
    std::memset(value, '#', sizeof(value));
    EXPECT_TRUE(util.getNetworkValue("wlan0", 0, "ssid", value, 4));
    EXPECT_EQ(std::string(value, 8), "abcd####") << "no NUL, and nothing after it is written";
    std::memset(value, '#', sizeof(value));
    EXPECT_TRUE(util.getNetworkValue("wlan0", 0, "ssid", value, 6));
    EXPECT_EQ(std::string(value, 8), "abcdef##");
    EXPECT_TRUE(util.getNetworkValue("wlan0", 0, "ssid", value, 7));
    EXPECT_STREQ(value, "abcdef");
    std::memset(value, '#', sizeof(value));
    EXPECT_TRUE(util.getNetworkValue("wlan0", 0, "ssid", value, 0));
    EXPECT_EQ(std::string(value, 8), "########");
}

TEST_F(Commands, FillTheRestOfTheRoomWithZeros) {
    standIn.on({"*"}).prints("ab");
    char value[8];
    std::memset(value, '#', sizeof(value));
    EXPECT_TRUE(util.getNetworkValue("wlan0", 0, "ssid", value, 6));
    EXPECT_EQ(std::string(value, 8), std::string("ab\0\0\0\0##", 8));
}

// REPLY-5
TEST_F(Commands, CheckAReplyBeforeItsStampIsRemoved) {
    WifiUtil& stamping = stampingUtil();
    standIn.on({"-iwlan0", "get_network", "0", "ssid"}).prints(STAMP);
    char value[8] = "before";
    EXPECT_TRUE(stamping.getNetworkValue("wlan0", 0, "ssid", value, sizeof(value)));
    EXPECT_STREQ(value, "");
    standIn.on({"-iwlan0", "add_network"}).prints(STAMP);
    standIn.on({"*"}).prints("OK\n");
    unsigned char id = 99;
    EXPECT_FALSE(stamping.createNetwork("wlan0", "home", &id)) << "no refusal, but no id";
    EXPECT_EQ(id, 99);
}

TEST_F(Commands, ReadStampedValues) {
    WifiUtil& stamping = stampingUtil();
    standIn.on({"*"}).prints(STAMP + "\"home\"");
    char value[32];
    EXPECT_TRUE(stamping.getNetworkValue("wlan0", 0, "ssid", value, sizeof(value)));
    EXPECT_STREQ(value, "home");
    standIn.reset();
    standIn.on({"*"}).prints(STAMP + "FAIL\n");
    EXPECT_FALSE(stamping.getNetworkValue("wlan0", 0, "ssid", value, sizeof(value)));
}

TEST_F(Commands, AcceptStampedReplies) {
    WifiUtil& stamping = stampingUtil();
    standIn.on({"*"}).prints(STAMP + "OK\n");
    EXPECT_TRUE(stamping.saveConfiguration("wlan0"));
    standIn.reset();
    standIn.on({"*"}).prints(STAMP + "FAIL\n");
    EXPECT_FALSE(stamping.saveConfiguration("wlan0"));
}

TEST_F(Commands, DisconnectWithAnyId) {
    standIn.on({"*"});
    EXPECT_TRUE(util.disconnectFromNetwork("wlan0", 0));
    EXPECT_TRUE(util.disconnectFromNetwork("wlan0", 255));
    const Arguments line{CLIENT, "-iwlan0", "disconnect"};
    EXPECT_THAT(standIn.calls(), ElementsAre(line, line));
}

const Arguments ADD{CLIENT, "-iwlan0", "add_network"};

Arguments setSsid(const char* id, const char* quotedSsid) {
    return {CLIENT, "-iwlan0", "set_network", id, "ssid", quotedSsid};
}

Arguments enable(const char* id) {
    return {CLIENT, "-iwlan0", "enable_network", id};
}

// OP-2
TEST_F(Commands, CreateANetworkInThreeSteps) {
    standIn.on({"-iwlan0", "add_network"}).prints("3\n");
    standIn.on({"*"}).prints("OK\n");
    unsigned char id = 99;
    EXPECT_TRUE(util.createNetwork("wlan0", "home", &id));
    EXPECT_EQ(id, 3);
    EXPECT_THAT(standIn.calls(), ElementsAre(ADD, setSsid("3", "\"home\""), enable("3")));
    EXPECT_THAT(test::resultFiles(), IsEmpty());
}

// VALUE-4
TEST_F(Commands, CreateAlwaysQuotesTheSsid) {
    standIn.on({"-iwlan0", "add_network"}).prints("0\n");
    standIn.on({"*"}).prints("OK\n");
    unsigned char id = 0;
    EXPECT_TRUE(util.createNetwork("wlan0", "\"quoted\" already", &id));
    EXPECT_EQ(standIn.calls()[1], setSsid("0", "\"\"quoted\" already\""));
    EXPECT_TRUE(util.createNetwork("wlan0", "", &id));
    EXPECT_EQ(standIn.calls()[4], setSsid("0", "\"\""));
    const std::string longSsid(200, 's');
    EXPECT_TRUE(util.createNetwork("wlan0", longSsid.c_str(), &id));
    EXPECT_EQ(standIn.calls()[7].back(), "\"" + longSsid + "\"");
}

// REPLY-2
TEST_F(Commands, CreateSendsTheIdBackAsItWasPrinted) {
    struct Row {
        const char* reply;
        const char* text;
        int id;
    };
    const Row rows[] = {
        {"0\n", "0", 0},     {"3\n", "3", 3},      {"255\n", "255", 255},
        {"007\n", "007", 7}, {"010\n", "010", 10}, {"00000255\n", "00000255", 255},
        {"4", "4", 4},
    };
    for (const Row& row : rows) {
        standIn.reset();
        standIn.on({"-iwlan0", "add_network"}).prints(row.reply);
        standIn.on({"*"}).prints("OK\n");
        unsigned char id = 99;
        EXPECT_TRUE(util.createNetwork("wlan0", "s", &id));
        EXPECT_EQ(id, row.id) << row.reply;
        EXPECT_EQ(standIn.calls()[1], setSsid(row.text, "\"s\"")) << row.reply;
        EXPECT_EQ(standIn.calls()[2], enable(row.text)) << row.reply;
    }
}

// REPLY-2
// The first digits of such a reply may be the id of another network.
TEST_F(Commands, CreateFailsWithoutAnotherCommandWhereTheReplyIsNoNetworkId) {
    for (const char* const reply :
         {"256\n", "300\n", "4294967296\n", "000000001\n", "12345678\n", "-1\n", "+1\n", "0x10\n",
          "1:2:3: 4\n", "5 networks\n", "5 \n", " 5\n", "5\t\n", "x\n", "OK\n",
          "Selected interface 'wlan0'\n5\n"}) {
        standIn.reset();
        standIn.on({"-iwlan0", "add_network"}).prints(reply);
        standIn.on({"*"}).prints("OK\n");
        unsigned char id = 99;
        EXPECT_FALSE(util.createNetwork("wlan0", "s", &id)) << reply;
        EXPECT_EQ(id, 99) << reply;
        EXPECT_THAT(standIn.calls(), ElementsAre(ADD)) << reply;
        EXPECT_THAT(test::resultFiles(), IsEmpty());
    }
}

TEST_F(Commands, CreateReadsAStampedId) {
    WifiUtil& stamping = stampingUtil();
    standIn.on({"-iwlan0", "add_network"}).prints(STAMP + "4\n");
    standIn.on({"*"}).prints("OK\n");
    unsigned char id = 0;
    EXPECT_TRUE(stamping.createNetwork("wlan0", "home", &id));
    EXPECT_EQ(id, 4);
    EXPECT_EQ(standIn.calls()[1], setSsid("4", "\"home\""));
}

// OP-1
TEST_F(Commands, CreateStopsAtTheFirstFailedStep) {
    unsigned char id = 99;
    standIn.on({"-iwlan0", "add_network"}).prints("FAIL\n");
    EXPECT_FALSE(util.createNetwork("wlan0", "home", &id));
    EXPECT_EQ(id, 99) << "unchanged, as there is no new network";
    EXPECT_THAT(standIn.calls(), ElementsAre(ADD));

    standIn.reset();
    standIn.on({"-iwlan0", "add_network"}).prints("3\n");
    standIn.on({"*"}).prints("FAIL\n");
    EXPECT_FALSE(util.createNetwork("wlan0", "home", &id));
    EXPECT_EQ(id, 3) << "the new network stays";
    EXPECT_THAT(standIn.calls(), ElementsAre(ADD, setSsid("3", "\"home\"")));

    standIn.reset();
    standIn.on({"-iwlan0", "add_network"}).prints("5\n");
    standIn.on({"-iwlan0", "enable_network", "5"}).prints("FAIL\n");
    standIn.on({"*"}).prints("OK\n");
    EXPECT_FALSE(util.createNetwork("wlan0", "home", &id));
    EXPECT_EQ(id, 5);
    EXPECT_THAT(standIn.calls(), ElementsAre(ADD, setSsid("5", "\"home\""), enable("5")));
    EXPECT_THAT(test::resultFiles(), IsEmpty());
}

// When a result file cannot be made, the creation stops at that step.
TEST_F(Commands, CreateHasAResultFileForEachStep) {
    const char* const prefixes[] = {"/tmp/wpa_cli_add_result_", "/tmp/wpa_cli_set_network_result_",
                                    "/tmp/wpa_cli_enable_result_"};
    for (std::size_t step = 0; step < std::size(prefixes); ++step) {
        standIn.reset();
        standIn.on({"-iwlan0", "add_network"}).prints("3\n");
        standIn.on({"*"}).prints("OK\n");
        const test::BlockedFile blocked(test::resultPath(prefixes[step]));
        unsigned char id = 0;
        EXPECT_FALSE(util.createNetwork("wlan0", "home", &id));
        EXPECT_EQ(standIn.calls().size(), step) << prefixes[step];
    }
}

} // namespace
