#include "completion/Completion.h"
#include "support/LoadedHost.h"

#include <fstream>
#include <gmock/gmock.h>
#include <sys/stat.h>

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

using Texts = std::vector<std::string>;

/// The candidates for the last word, with "..." behind those that are not whole.
Texts candidates(const Texts& words) {
    Texts texts;
    for (const cli::Candidate& candidate : cli::candidatesFor(words))
        texts.push_back(candidate.word + (candidate.isWhole ? "" : "..."));
    return texts;
}

class Candidates : public testing::Test {
protected:
    test::LoadedHost m_host;
};

} // namespace

TEST_F(Candidates, AreCommandsFirst) {
    EXPECT_THAT(candidates({"s"}), ElementsAre("status", "scan", "show", "set"));
    EXPECT_THAT(candidates({"--v"}), ElementsAre("--version"));
    EXPECT_THAT(candidates({"nonsense", ""}), IsEmpty());
    EXPECT_THAT(candidates({}), IsEmpty());
}

TEST_F(Candidates, AreAliasesToo) {
    m_host.answers({"home"});
    EXPECT_THAT(candidates({"r"}), ElementsAre("remove", "rm", "roam"));
    EXPECT_THAT(candidates({"rm", ""}), ElementsAre("home"));
    EXPECT_THAT(candidates({"list", "--j"}), ElementsAre("--json"));
    EXPECT_THAT(candidates({"help", "r"}), ElementsAre("remove", "rm", "roam"));
    EXPECT_THAT(candidates({"help", "roam", ""}), IsEmpty());
}

TEST_F(Candidates, FollowOptionsBeforeTheCommand) {
    m_host.answers({"home", "-dash"});
    EXPECT_THAT(candidates({"-i", "wlan0", "sh"}), ElementsAre("show"));
    EXPECT_THAT(candidates({"--interface=wlan0", "--json", "show", ""}), ElementsAre("home"));
    EXPECT_THAT(candidates({"-t", "5", "connect", "h"}), ElementsAre("home"));
    EXPECT_THAT(candidates({"--json", "rm", "--i"}), ElementsAre("--interface"));
    EXPECT_THAT(candidates({"--json", "set", "home", "prio"}), ElementsAre("priority=..."));
    EXPECT_THAT(candidates({"--", "show", "-d"}), ElementsAre("-dash"));
    EXPECT_THAT(candidates({"--json", "nonsense", ""}), IsEmpty());
}

TEST_F(Candidates, AreOptionsBeforeTheCommandAndTheirValues) {
    m_host.answers({"home"});
    EXPECT_THAT(candidates({"--"}),
                ElementsAre("--help", "--version", "--json", "--interface", "--sort", "--timeout",
                            "--hidden", "--eap", "--full"));
    EXPECT_THAT(candidates({"--json", "--f"}), ElementsAre("--full"));
    EXPECT_THAT(candidates({"-i", ""}), ElementsAre("wlan0"));
    EXPECT_THAT(candidates({"--json", "--interface", "wl"}), ElementsAre("wlan0"));
    EXPECT_THAT(candidates({"--interface=w"}), ElementsAre("--interface=wlan0"));
    EXPECT_THAT(candidates({"--timeout", ""}), IsEmpty());
    EXPECT_THAT(candidates({"--sort", "s"}), ElementsAre("signal", "ssid", "security"));
    EXPECT_THAT(candidates({"join", "cafe", "--eap", ""}), ElementsAre("PEAP", "TTLS", "TLS"));
}

TEST_F(Candidates, AreOptionsOfTheCommandBehindAHyphen) {
    EXPECT_THAT(candidates({"xml", "--f"}), ElementsAre("--full"));
    EXPECT_THAT(candidates({"status", "--"}), ElementsAre("--help", "--json", "--interface"));
    EXPECT_THAT(candidates({"status", ""}), IsEmpty());
}

TEST_F(Candidates, AreConfiguredNetworksForCommandsThatTakeOne) {
    m_host.answers({"home", "caf\\xc3\\xa9"});
    for (const char* const command : {"show", "set", "remove", "connect", "disconnect"})
        EXPECT_THAT(candidates({command, ""}), ElementsAre("home", "caf\u00e9")) << command;
    EXPECT_THAT(candidates({"connect", "--timeout", "5", "h"}), ElementsAre("home"));
    EXPECT_THAT(candidates({"add", ""}), IsEmpty());
    EXPECT_THAT(candidates({"show", "home", ""}), IsEmpty());
}

TEST_F(Candidates, DoNotTakeAnOptionOrItsValueForTheNetwork) {
    m_host.answers({"home", "-dash"});
    EXPECT_THAT(candidates({"show", "--json", ""}), Contains("home"));
    EXPECT_THAT(candidates({"show", "-i", "wlan0", ""}), Contains("home"));
    EXPECT_THAT(candidates({"show", "-i", ""}), ElementsAre("wlan0"));
    EXPECT_THAT(candidates({"connect", "-t", ""}), IsEmpty());
    EXPECT_THAT(candidates({"show", "--", "-d"}), ElementsAre("-dash"));
    EXPECT_THAT(candidates({"show", "-d"}), IsEmpty());
    EXPECT_THAT(candidates({"show", ""}), ElementsAre("home"));
}

TEST_F(Candidates, HaveAnSsidAsItCanBeTyped) {
    m_host.answers({"a\\\\nb", "bell\\x07", "bytes\\xff", "quote\\\""});
    EXPECT_THAT(candidates({"show", ""}),
                ElementsAre("a\\nb", "bell\\x07", "bytes\\xff", "quote\""));
}

TEST_F(Candidates, LeaveOutNetworksWithoutAnSsid) {
    m_host.answers({"", "any", "02:00:00:00:01:00", "home"});
    EXPECT_THAT(candidates({"show", ""}), ElementsAre("any", "02:00:00:00:01:00", "home"));
}

TEST_F(Candidates, HaveAWholeSsidThatTheDriverHandsOutInPieces) {
    std::string notation;
    std::string bytes;
    for (int i = 0; i < 16; ++i) {
        notation += "\\xc3\\xa9";
        bytes += "\u00e9";
    }
    m_host.answers({"home", notation, "cafe"});
    EXPECT_THAT(candidates({"show", ""}), ElementsAre("home", bytes, "cafe"));
}

TEST_F(Candidates, NeedThreeCommandsOfTheClient) {
    m_host.answers({"home"});
    candidates({"show", ""});
    EXPECT_LE(m_host.calls().size(), 3U);
    EXPECT_EQ(m_host.callsOf({"-iwlan0", "list_networks"}), 1U);
}

TEST_F(Candidates, AreNoNetworksWithoutASupplicant) {
    EXPECT_THAT(candidates({"show", ""}), IsEmpty());
    EXPECT_THAT(candidates({"status", "-i", ""}), IsEmpty());
}

TEST_F(Candidates, ArePropertiesThatCanBeSet) {
    EXPECT_THAT(candidates({"set", "home", "prio"}), ElementsAre("priority=..."));
    EXPECT_THAT(candidates({"add", "new", "ps"}), ElementsAre("psk=..."));
    EXPECT_THAT(candidates({"set", "home", "priority=5", "mo"}), ElementsAre("mode=..."));
    EXPECT_THAT(candidates({"set", "home", "stat"}), IsEmpty());
    EXPECT_THAT(candidates({"connect", "home", ""}), IsEmpty());
}

TEST_F(Candidates, AreTheWordsOfAProperty) {
    EXPECT_THAT(candidates({"set", "home", "key_mgmt=FT-"}),
                ElementsAre("key_mgmt=FT-PSK", "key_mgmt=FT-EAP", "key_mgmt=FT-SAE"));
    EXPECT_THAT(candidates({"set", "home", "priority="}), IsEmpty());
    EXPECT_THAT(candidates({"set", "home", "status="}), IsEmpty());
    EXPECT_THAT(candidates({"set", "home", "nonsense="}), IsEmpty());
}

TEST_F(Candidates, AreTheTwoSourcesOfASecret) {
    EXPECT_THAT(candidates({"set", "home", "psk="}), ElementsAre("psk=-", "psk=@..."));
    EXPECT_THAT(candidates({"set", "home", "key1="}), ElementsAre("key1=-", "key1=@..."));
}

TEST_F(Candidates, AreFilesThatATerminalCanShow) {
    ASSERT_EQ(mkdir("/tmp/listed", 0700), 0);
    ASSERT_EQ(mkdir("/tmp/listed/more", 0700), 0);
    for (const char* const name : {"home", "work", ".hidden", "be\all"})
        std::ofstream(std::string("/tmp/listed/") + name);
    EXPECT_THAT(
        candidates({"set", "x", "psk=@/tmp/listed/"}),
        ElementsAre("psk=@/tmp/listed/home", "psk=@/tmp/listed/more/...", "psk=@/tmp/listed/work"));
    EXPECT_THAT(candidates({"set", "x", "psk=@/tmp/listed/.h"}),
                ElementsAre("psk=@/tmp/listed/.hidden"));
    EXPECT_THAT(candidates({"set", "x", "privateKeyFile=/tmp/list"}),
                ElementsAre("privateKeyFile=/tmp/listed/..."));
    EXPECT_THAT(candidates({"set", "x", "psk=@/nowhere/"}), IsEmpty());
}
