// A load that fails leaves an instance without anything, and without a lock held.

#include "LoadedSettings.h"

#include "support/Leftovers.h"

#include <filesystem>

using test::Arguments;
using test::Commands;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

const std::string LIST = "0\thome\tany\t[CURRENT]\n";
const std::string STATUS = "ssid=home\nwpa_state=COMPLETED\n";
const Arguments QUERIES[] = {{"interface"},
                             {"-iwlan0", "list_networks"},
                             {"-iwlan0", "scan_results"},
                             {"-iwlan0", "status"}};

class LoadFailure : public test::SettingsTest {
protected:
    static int adapterCount() {
        char* names[2] = {nullptr, nullptr};
        unsigned char count = 9;
        EXPECT_TRUE(settings().getWifiAdapters(names, 2, &count));
        for (const char* const name : names)
            delete[] name;
        return count;
    }

    static void expectNothing() {
        EXPECT_EQ(adapterCount(), 0);
        EXPECT_THAT(ssids(), IsEmpty());
        EXPECT_EQ(current(), "none");
        EXPECT_EQ(state(), WPA_STATE_UNKNOWN);
        expectNoLockHeld();
    }

    static void expectEverything() {
        EXPECT_EQ(adapterCount(), 1);
        EXPECT_THAT(ssids(), ElementsAre("home"));
        EXPECT_EQ(current(), "home");
        EXPECT_EQ(state(), WPA_STATE_COMPLETED);
        expectNoLockHeld();
    }

    // A client that answers `count` commands of a load and then fails.
    void scriptUntil(std::size_t count) {
        constexpr std::size_t VALUES = 27;
        std::vector<std::string> replies(VALUES, "FAIL\n");
        replies.insert(replies.begin(),
                       {test::ADAPTER_HEADER + "wlan0\n", test::LIST_HEADER + LIST});
        replies.insert(replies.end(), {test::SCAN_HEADER, STATUS});
        ASSERT_LE(count, replies.size());
        standIn.reset();
        auto answer = standIn.on({"*"});
        for (std::size_t i = 0; i < count; ++i)
            answer.prints(replies[i]).then();
        answer.printsError("Failed to connect\n").exits(255);
    }

    /// The commands of a load in which the client answers one of them like this.
    Commands commandsOfLoading(const Arguments& query, const std::string& reply, int status = 0) {
        standIn.reset();
        standIn.on(query).prints(reply).exits(status);
        standIn.answersLoad(LIST, STATUS);
        reload();
        return commands();
    }
};

// LOAD-23
TEST_F(LoadFailure, OfAnyQueryLeavesNothingUntilAReload) {
    for (const Arguments& query : QUERIES) {
        SCOPED_TRACE(query.back());
        const test::Leftovers before = test::Leftovers::now();
        EXPECT_EQ(commandsOfLoading(query, "header\nheader\n", 255).back(),
                  (query.size() == 1 ? "" : "-iwlan0 ") + query.back());
        expectNothing();
        EXPECT_TRUE(test::Leftovers::now() == before);
        load(LIST, STATUS);
        expectEverything();
    }
}

// A value of a network may be missing; the scan and the status may not.
TEST_F(LoadFailure, AtAnyPointLeavesNothing) {
    constexpr std::size_t ALL = 2 + 27 + 2;
    for (std::size_t answered = 0; answered < ALL; ++answered) {
        SCOPED_TRACE(answered);
        scriptUntil(answered);
        reload();
        expectNothing();
    }
    scriptUntil(ALL);
    reload();
    expectEverything();
    EXPECT_THAT(test::resultFiles(), IsEmpty());
}

TEST_F(LoadFailure, OfARefreshAtAnyPointLeavesNothing) {
    for (const std::size_t answered : {0U, 1U, 2U, 15U, 29U, 30U}) {
        SCOPED_TRACE(answered);
        load(LIST, STATUS);
        expectEverything();
        scriptUntil(answered);
        EXPECT_TRUE(settings().refreshAllSettings());
        expectNothing();
    }
}

TEST_F(LoadFailure, WithoutAClient) {
    std::filesystem::remove(standIn.folder() + "/wpa_cli");
    reload();
    expectNothing();
    EXPECT_THAT(test::resultFiles(), IsEmpty());
}

// LOAD-23
TEST_F(LoadFailure, WithoutAnAdapterThatACommandCanName) {
    const std::string replies[] = {"", "one\n", test::ADAPTER_HEADER,
                                   test::ADAPTER_HEADER + "fourteen-chars\n"};
    for (const std::string& reply : replies) {
        EXPECT_THAT(commandsOfLoading({"interface"}, reply), ElementsAre("interface")) << reply;
        expectNothing();
    }
}

TEST_F(LoadFailure, TakesARefusalForAnAdapterAndFailsWithIt) {
    standIn.on({"interface"}).prints(test::ADAPTER_HEADER + "FAIL\n");
    reload();
    expectNothing();
    EXPECT_THAT(commands(), ElementsAre("interface", "-iFAIL list_networks"));
}

// The list stays lost, whatever the client answers.
TEST_F(LoadFailure, LastsThroughRefreshesUntilAReload) {
    fail();
    standIn.answersLoad(LIST, STATUS);
    for (int i = 0; i < 2; ++i) {
        EXPECT_THAT(commandsOf([] { settings().refreshAllSettings(); }),
                    ElementsAre("interface", "-iwlan0 list_networks"));
        expectNothing();
    }
    reload();
    expectEverything();
}

TEST_F(LoadFailure, IsNoneWhenAValueCannotBeRead) {
    standIn.on({"-iwlan0", "get_network", "0", "key_mgmt"}).exits(255);
    standIn.on({"-iwlan0", "get_network", "0", "psk"}).diesBy(9);
    standIn.on({"-iwlan0", "get_network", "0", "pairwise"}).prints("");
    standIn.on({"-iwlan0", "get_network", "0", "group"}).prints("Invalid\n");
    standIn.on({"-iwlan0", "get_network", "0", "identity"}).prints("me\n");
    standIn.answersLoad(LIST, STATUS);
    reload();
    expectEverything();
    EXPECT_EQ(network("home")->getKeyManagement(), 6U);
    EXPECT_EQ(network("home")->getPsk(), nullptr);
    EXPECT_EQ(network("home")->getPairwiseCiphers(), 6U);
    EXPECT_EQ(network("home")->getGroupCiphers(), 30U);
    EXPECT_STREQ(network("home")->getEAPIdentity(), "me");
}

// Replies that no client prints.

using LoadGarbage = LoadFailure;

std::string binary() {
    std::string text;
    for (int i = 0; i < 2000; ++i)
        text += static_cast<char>(i * 7 % 251);
    return text;
}

TEST_F(LoadGarbage, FromAnyCommandIsSurvived) {
    const std::string replies[] = {
        "",
        "\n",
        "\n\n\n",
        "FAIL\n",
        "FAIL-BUSY\n",
        "\t\t\t\n\t\t\t\n",
        "0\thome\tan",
        "ssid=",
        "wpa_state",
        std::string(300, 'x') + "\n",
        std::string(300, '\t') + "\n",
        std::string(127, '9') + "\n" + std::string(126, ':') + "\n",
        "x\n" + std::string(125, 'a') + "\tb\tc\n",
        "h\n0\t" + std::string(200, 's') + "\tany\t\n",
        "x\n" + std::string(50000, '\n') + "tail",
        binary(),
    };
    for (const std::string& reply : replies) {
        SCOPED_TRACE(reply.substr(0, 20));
        for (const Arguments& query : QUERIES) {
            standIn.reset();
            standIn.on(query).prints(reply);
            standIn.answersLoad("0\n", STATUS, "home\n"); // no network: no commands for values
            reload();
            expectNoLockHeld();
        }
        standIn.reset();
        for (const Arguments& query : QUERIES)
            standIn.on(query).prints("header\n" + (query == QUERIES[0] ? "header\nwlan0\n" : LIST));
        answer(reply); // to every question for a value
        reload();
        expectNoLockHeld();
    }
    EXPECT_THAT(test::resultFiles(), IsEmpty());
}

TEST_F(LoadGarbage, InTheListCostsItsOwnLinesAlone) {
    load("FAIL\n0\thome\tany\t\n\t\t\n" + std::string(300, 'x') + "\n7\twork\tany\t\n");
    EXPECT_THAT(ssids(), ElementsAre("work", "home"));
}

TEST_F(LoadGarbage, OfALineLongerThanAnySsidIsReadAsOneLine) {
    load("0\t" + std::string(254, 's') + "\tany\t\n1\thome\tany\t\n");
    EXPECT_THAT(ssids(), ElementsAre("home")) << "what is behind 256 characters is cut: no BSSID";
}

TEST_F(LoadGarbage, InTheStatusLeavesTheStateUnknown) {
    load("0\thome\tany\t[CURRENT]\n", "FAIL\n\x01\xff=\n");
    EXPECT_EQ(state(), WPA_STATE_UNKNOWN);
    EXPECT_EQ(current(), "none");
}

} // namespace
