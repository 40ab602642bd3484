#include "ClientOperations.h"

#include "support/BlockedFile.h"
#include "support/Leftovers.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstring>
#include <iterator>
#include <string>

using namespace test;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

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
        const Leftovers before = Leftovers::now();
        const bool result = GetParam().run(util, "wlan0");
        EXPECT_TRUE(Leftovers::now() == before);
        return result;
    }

    StandIn standIn;
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
    const std::string accepted = GetParam().accepted;
    EXPECT_TRUE(runWith(accepted + "\n"));
    EXPECT_TRUE(runWith(accepted)) << "without a line feed";
    EXPECT_TRUE(runWith(accepted + "\nFAIL\n")) << "the first line alone decides";
    for (const std::string& refused :
         {std::string("FAIL\n"), std::string("FAIL-BUSY\n"), std::string("some FAIL text\n"),
          std::string("Invalid command\n"), std::string(), "\n" + accepted + "\n"})
        EXPECT_EQ(runWith(refused), byStatus) << refused;
    for (const int status : {1, 255})
        EXPECT_FALSE(runWith(accepted + "\n", status));
}

TEST_P(ConfigurationCommand, ChecksNoMoreThan127CharactersOfTheReply) {
    const bool byStatus = GetParam().success == Success::BY_EXIT_STATUS;
    const bool takesAnyText = std::strcmp(GetParam().accepted, "OK") == 0;
    EXPECT_EQ(runWith(std::string(127, 'x') + "FAIL\n"), takesAnyText);
    EXPECT_EQ(runWith(std::string(123, 'x') + "FAIL\n"), byStatus);
}

TEST_P(ConfigurationCommand, UsesItsOwnResultFile) {
    standIn.on({"*"}).prints("0\n");
    {
        const BlockedFile blocked(resultPath(GetParam().resultPrefix));
        EXPECT_FALSE(GetParam().run(util, "wlan0"));
        EXPECT_THAT(standIn.calls(), IsEmpty());
    }
    EXPECT_TRUE(GetParam().run(util, "wlan0"));
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

    StandIn standIn;
    WifiUtil util;
};

// VALUE-6
TEST_F(Commands, SendQuotedAndBareValues) {
    const std::string hex(64, 'a');
    const std::string passphrase(63, 'p');
    const struct {
        const char* key;
        std::string value;
        std::string sent;
    } rows[] = {
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
    for (const auto& row : rows) {
        EXPECT_TRUE(util.setNetworkValue("wlan0", 255, row.key, row.value.c_str()));
        EXPECT_EQ(standIn.calls().back(),
                  (Arguments{CLIENT, "-iwlan0", "set_network", "255", row.key, row.sent}));
    }
}

TEST_F(Commands, ReadValuesWithoutTheirQuotes) {
    const struct {
        std::string reply;
        bool found;
        std::string value;
    } rows[] = {
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
    for (const auto& row : rows) {
        standIn.reset();
        standIn.on({"*"}).prints(row.reply);
        char value[200] = "untouched";
        EXPECT_EQ(util.getNetworkValue("wlan0", 0, "ssid", value, sizeof(value)), row.found)
            << row.reply;
        EXPECT_EQ(value, row.found ? row.value : "untouched") << row.reply;
    }
}

// REPLY-13
TEST_F(Commands, CopyAValueAsFarAsThereIsRoomAndFillTheRestWithZeros) {
    const struct {
        const char* reply;
        unsigned int room;
        std::string bytes; // of 8
    } rows[] = {
        {"\"abcdef\"", 4, "abcd####"}, // no NUL, and nothing after it is written
        {"\"abcdef\"", 6, "abcdef##"}, {"\"abcdef\"", 7, std::string("abcdef\0#", 8)},
        {"\"abcdef\"", 0, "########"}, {"ab", 6, std::string("ab\0\0\0\0##", 8)},
    };
    for (const auto& row : rows) {
        standIn.reset();
        standIn.on({"*"}).prints(row.reply);
        std::string value(8, '#');
        EXPECT_TRUE(util.getNetworkValue("wlan0", 0, "ssid", value.data(), row.room));
        EXPECT_EQ(value, row.bytes) << row.reply << row.room;
    }
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

TEST_F(Commands, ReadStampedReplies) {
    WifiUtil& stamping = stampingUtil();
    char value[32];
    standIn.on({"*"}).prints(STAMP + "\"home\"");
    EXPECT_TRUE(stamping.getNetworkValue("wlan0", 0, "ssid", value, sizeof(value)));
    EXPECT_STREQ(value, "home");
    EXPECT_TRUE(stamping.saveConfiguration("wlan0"));
    standIn.reset();
    standIn.on({"*"}).prints(STAMP + "FAIL\n");
    EXPECT_FALSE(stamping.getNetworkValue("wlan0", 0, "ssid", value, sizeof(value)));
    EXPECT_FALSE(stamping.saveConfiguration("wlan0"));
}

TEST_F(Commands, DisconnectWithAnyId) {
    standIn.on({"*"});
    EXPECT_TRUE(util.disconnectFromNetwork("wlan0", 0));
    EXPECT_TRUE(util.disconnectFromNetwork("wlan0", 255));
    const Arguments line{CLIENT, "-iwlan0", "disconnect"};
    EXPECT_THAT(standIn.calls(), ElementsAre(line, line));
}

// Creation.

class Creation : public Commands {
protected:
    // Creates a network with a client that prints this for add_network. Returns whether that succeeded.
    bool create(const std::string& reply, const char* ssid = "home") {
        standIn.reset();
        standIn.on({"-iwlan0", "add_network"}).prints(reply);
        return createWithRules(ssid);
    }

    bool createWithRules(const char* ssid = "home") {
        standIn.on({"*"}).prints("OK\n");
        id = 99;
        const bool result = util.createNetwork("wlan0", ssid, &id);
        EXPECT_THAT(resultFiles(), IsEmpty());
        return result;
    }

    static Arguments setSsid(const char* id, const std::string& quotedSsid) {
        return {CLIENT, "-iwlan0", "set_network", id, "ssid", quotedSsid};
    }

    static Arguments enable(const char* id) { return {CLIENT, "-iwlan0", "enable_network", id}; }

    const Arguments add{CLIENT, "-iwlan0", "add_network"};
    unsigned char id = 99;
};

// OP-2
// REPLY-2
TEST_F(Creation, TakesThreeStepsWithTheIdAsItWasPrinted) {
    const struct {
        const char* reply;
        const char* text;
        int id;
    } rows[] = {
        {"0\n", "0", 0},     {"3\n", "3", 3},      {"255\n", "255", 255},
        {"007\n", "007", 7}, {"010\n", "010", 10}, {"00000255\n", "00000255", 255},
        {"4", "4", 4},
    };
    for (const auto& row : rows) {
        EXPECT_TRUE(create(row.reply)) << row.reply;
        EXPECT_EQ(id, row.id) << row.reply;
        EXPECT_THAT(standIn.calls(),
                    ElementsAre(add, setSsid(row.text, "\"home\""), enable(row.text)))
            << row.reply;
    }
}

// VALUE-4
TEST_F(Creation, AlwaysQuotesTheSsid) {
    for (const std::string& ssid :
         {std::string("\"quoted\" already"), std::string(), std::string(200, 's')}) {
        EXPECT_TRUE(create("0\n", ssid.c_str()));
        EXPECT_EQ(standIn.calls()[1], setSsid("0", "\"" + ssid + "\""));
    }
}

// REPLY-2
// The first digits of such a reply may be the id of another network.
TEST_F(Creation, FailsWithoutAnotherCommandIfTheReplyIsNoNetworkId) {
    for (const char* const reply :
         {"256\n", "300\n", "4294967296\n", "000000001\n", "12345678\n", "-1\n", "+1\n", "0x10\n",
          "1:2:3: 4\n", "5 networks\n", "5 \n", " 5\n", "5\t\n", "x\n", "OK\n",
          "Selected interface 'wlan0'\n5\n", "FAIL\n"}) {
        EXPECT_FALSE(create(reply)) << reply;
        EXPECT_EQ(id, 99) << "unchanged, as there is no new network: " << reply;
        EXPECT_THAT(standIn.calls(), ElementsAre(add)) << reply;
    }
}

TEST_F(Creation, ReadsAStampedId) {
    WifiUtil& stamping = stampingUtil();
    standIn.on({"-iwlan0", "add_network"}).prints(STAMP + "4\n");
    standIn.on({"*"}).prints("OK\n");
    EXPECT_TRUE(stamping.createNetwork("wlan0", "home", &id));
    EXPECT_EQ(id, 4);
    EXPECT_EQ(standIn.calls()[1], setSsid("4", "\"home\""));
}

// OP-1
TEST_F(Creation, StopsAtTheFirstFailedStepAndKeepsTheNewNetwork) {
    standIn.on({"-iwlan0", "add_network"}).prints("3\n");
    standIn.on({"-iwlan0", "set_network", "3", "ssid", "\"home\""}).prints("FAIL\n");
    EXPECT_FALSE(createWithRules());
    EXPECT_EQ(id, 3);
    EXPECT_THAT(standIn.calls(), ElementsAre(add, setSsid("3", "\"home\"")));

    standIn.reset();
    standIn.on({"-iwlan0", "add_network"}).prints("5\n");
    standIn.on({"-iwlan0", "enable_network", "5"}).prints("FAIL\n");
    EXPECT_FALSE(createWithRules());
    EXPECT_EQ(id, 5);
    EXPECT_THAT(standIn.calls(), ElementsAre(add, setSsid("5", "\"home\""), enable("5")));
}

// When a result file cannot be made, the creation stops at that step.
TEST_F(Creation, HasAResultFileForEachStep) {
    const char* const prefixes[] = {"/tmp/wpa_cli_add_result_", "/tmp/wpa_cli_set_network_result_",
                                    "/tmp/wpa_cli_enable_result_"};
    for (std::size_t step = 0; step < std::size(prefixes); ++step) {
        standIn.reset();
        standIn.on({"-iwlan0", "add_network"}).prints("3\n");
        standIn.on({"*"}).prints("OK\n");
        const BlockedFile blocked(resultPath(prefixes[step]));
        EXPECT_FALSE(util.createNetwork("wlan0", "home", &id));
        EXPECT_EQ(standIn.calls().size(), step) << prefixes[step];
    }
}

} // namespace
