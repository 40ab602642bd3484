#include "LoadFixture.h"

#include "support/Leftovers.h"

#include <filesystem>

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

const std::string LIST = "0\thome\tany\t[CURRENT]\n";
const std::string STATUS = "ssid=home\nwpa_state=COMPLETED\n";

class LoadFailure : public test::LoadFixture {
protected:
    // Whatever failed, what is left is an instance without anything, and unlocked.
    void expectNothing(const WifiHostSettings& settings) {
        EXPECT_EQ(test::networksOf(settings), nullptr);
        EXPECT_EQ(test::adapterNamesOf(settings), nullptr);
        EXPECT_EQ(network("home"), nullptr);
        EXPECT_EQ(current(), "none");
        EXPECT_EQ(test::supplicantStateOf(settings), WPA_STATE_UNKNOWN);
        expectNoLockHeld();
    }

    void expectEverything(const WifiHostSettings& settings) {
        ASSERT_NE(test::networksOf(settings), nullptr);
        EXPECT_THAT(ssids(), ElementsAre("home"));
        EXPECT_EQ(current(), "home");
        EXPECT_EQ(test::supplicantStateOf(settings), WPA_STATE_COMPLETED);
        expectNoLockHeld();
    }

    // A client that answers `count` commands of a load and is gone then.
    void scriptUntil(std::size_t count) {
        constexpr std::size_t VALUES = 27;
        std::vector<std::string> replies(VALUES, "FAIL\n");
        replies.insert(replies.begin(),
                       {test::ADAPTER_HEADER + "wlan0\n", test::LIST_HEADER + LIST});
        replies.insert(replies.end(), {test::SCAN_HEADER, STATUS});
        ASSERT_LE(count, replies.size());
        auto answer = standIn.on({"*"});
        for (std::size_t i = 0; i < count; ++i)
            answer.prints(replies[i]).then();
        answer.printsError("Failed to connect\n").exits(255);
    }
};

// LOAD-23
TEST_F(LoadFailure, OfAnyQueryLeavesNothingUntilAReload) {
    const test::Arguments queries[] = {{"interface"},
                                       {"-iwlan0", "list_networks"},
                                       {"-iwlan0", "scan_results"},
                                       {"-iwlan0", "status"}};
    for (const test::Arguments& query : queries) {
        SCOPED_TRACE(query.back());
        standIn.on(query).prints("header\nheader\n").exits(255);
        script(LIST, STATUS);
        const test::Leftovers before = test::Leftovers::now();
        expectNothing(reload());
        EXPECT_EQ(commands().back(), (query.size() == 1 ? "" : "-iwlan0 ") + query.back());
        EXPECT_TRUE(test::Leftovers::now() == before);
        standIn.reset();
        script(LIST, STATUS);
        expectEverything(reload());
        standIn.reset();
    }
}

// No value of a network has to be there; the scan and the status have to.
TEST_F(LoadFailure, AtAnyPointLeavesNothing) {
    constexpr std::size_t ALL = 2 + 27 + 2;
    for (std::size_t answered = 0; answered < ALL; ++answered) {
        SCOPED_TRACE(answered);
        scriptUntil(answered);
        expectNothing(reload());
        standIn.reset();
    }
    scriptUntil(ALL);
    expectEverything(reload());
    EXPECT_THAT(test::resultFiles(), IsEmpty());
}

TEST_F(LoadFailure, OfARefreshAtAnyPointLeavesNothing) {
    for (const std::size_t answered : {0U, 1U, 2U, 15U, 29U, 30U}) {
        SCOPED_TRACE(answered);
        script(LIST, STATUS);
        expectEverything(reload());
        standIn.reset();
        scriptUntil(answered);
        expectNothing(load());
        standIn.reset();
    }
}

TEST_F(LoadFailure, WithoutAClient) {
    std::filesystem::remove(standIn.folder() + "/wpa_cli");
    expectNothing(load());
    EXPECT_THAT(test::resultFiles(), IsEmpty());
}

// LOAD-23
TEST_F(LoadFailure, WithoutAnAdapter) {
    for (const std::string& reply : {std::string(), test::ADAPTER_HEADER, std::string("one\n")}) {
        standIn.on({"interface"}).prints(reply);
        script(LIST, STATUS);
        expectNothing(reload());
        EXPECT_THAT(commands(), ElementsAre("interface")) << reply;
        standIn.reset();
    }
}

TEST_F(LoadFailure, WithAnAdapterThatNoCommandCanName) {
    standIn.on({"interface"}).prints(test::ADAPTER_HEADER + "fourteen-chars\n");
    script(LIST, STATUS);
    expectNothing(load());
    EXPECT_THAT(commands(), ElementsAre("interface"));
}

TEST_F(LoadFailure, TakesARefusalForAnAdapterAndFailsWithIt) {
    standIn.on({"interface"}).prints(test::ADAPTER_HEADER + "FAIL\n");
    standIn.on({"*"}).exits(255);
    expectNothing(load());
    EXPECT_THAT(commands(), ElementsAre("interface", "-iFAIL list_networks"));
}

// A list that was lost does not come back by itself, whatever the client says.
TEST_F(LoadFailure, LastsThroughRefreshesUntilAReload) {
    standIn.on({"*"}).exits(255);
    expectNothing(load());
    standIn.reset();
    script(LIST, STATUS);
    for (int i = 0; i < 2; ++i)
        expectNothing(load());
    EXPECT_THAT(commands(), ElementsAre("interface", "-iwlan0 list_networks", "interface",
                                        "-iwlan0 list_networks"));
    expectEverything(reload());
}

TEST_F(LoadFailure, IsNoneWhenAValueCannotBeRead) {
    standIn.on({"-iwlan0", "get_network", "0", "key_mgmt"}).exits(255);
    standIn.on({"-iwlan0", "get_network", "0", "psk"}).diesBy(9);
    value("0", "pairwise", "");
    value("0", "group", "Invalid\n");
    value("0", "identity", "me\n");
    script(LIST, STATUS);
    expectEverything(load());
    EXPECT_EQ(network("home")->getKeyManagement(), 6U);
    EXPECT_EQ(network("home")->getPsk(), nullptr);
    EXPECT_EQ(network("home")->getPairwiseCiphers(), 6U);
    EXPECT_EQ(network("home")->getGroupCiphers(), 30U);
    EXPECT_STREQ(network("home")->getEAPIdentity(), "me");
}

class LoadGarbage : public test::LoadFixture {
protected:
    void expectSurvived(const std::string& list, const std::string& values) {
        script(list, STATUS, "home\n", values);
        reload();
        expectNoLockHeld();
        standIn.reset();
    }

    static std::string binary() {
        std::string text;
        for (int i = 0; i < 2000; ++i)
            text += static_cast<char>(i * 7 % 251);
        return text;
    }
};

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
        // A line of no network lets the scan be asked for, and costs no commands for values.
        for (const test::Arguments& command :
             {test::Arguments{"interface"}, test::Arguments{"-iwlan0", "list_networks"},
              test::Arguments{"-iwlan0", "scan_results"}, test::Arguments{"-iwlan0", "status"}}) {
            standIn.on(command).prints(reply);
            expectSurvived("0\n", "FAIL\n");
        }
        expectSurvived(LIST, reply);
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
    EXPECT_EQ(test::supplicantStateOf(load("0\thome\tany\t[CURRENT]\n", "FAIL\n\x01\xff=\n")),
              WPA_STATE_UNKNOWN);
    EXPECT_EQ(current(), "none");
}

} // namespace
