// Questions that the command line asks over the control socket itself, without a client.

#include "client/Question.h"

#include "CommandFixture.h"
#include "monitor/EventServer.h"
#include "support/Doing.h"
#include "support/TestTime.h"

#include <csignal>
#include <cstdlib>
#include <filesystem>

using cli::askDirectly;
using cli::askSupplicant;
using test::Arguments;
using test::EventServer;
using test::Program;
using testing::ElementsAre;
using testing::HasSubstr;

namespace {

const std::string STATUS = "bssid=02:00:00:00:01:00\nfreq=5180\nssid=home\nkey_mgmt=SAE\n"
                           "pairwise_cipher=CCMP\nwpa_state=COMPLETED\nip_address=192.0.2.7\n";
const std::string SIGNAL = "RSSI=-61\nLINKSPEED=866\nNOISE=-92\nFREQUENCY=5180\n";

bool existsOwnSocket() {
    for (const auto& file : std::filesystem::directory_iterator("/tmp")) {
        if (file.path().filename().string().rfind("wpa_ctrl_", 0) == 0)
            return true;
    }
    return false;
}

// The socket of this number through which a process asks.
std::string socketOf(const Program& program, int number) {
    return "/tmp/wpa_ctrl_" + std::to_string(program.id()) + "-" + std::to_string(number);
}

class AQuestion : public test::CommandFixture {
protected:
    ~AQuestion() override { EXPECT_FALSE(existsOwnSocket()); }

    /// From now on no variable chooses the programs.
    static void askWithoutTheStandIn() { unsetenv("PLATFORM_BOOT_DIR"); }

    void answer(const std::string& question, const std::string& reply) {
        EXPECT_EQ(m_server->receive(), question);
        m_server->send(reply);
    }

    /// What a question in this process gets for this reply.
    std::string replyTo(const std::string& reply) {
        const test::Doing supplicant([&] { answer("GET country", reply); });
        return askSupplicant("wlan0", "get", "country");
    }

    std::optional<EventServer> m_server{std::in_place};
};

TEST_F(AQuestion, IsAskedByTheProgramItself) {
    on({"status"}).prints(STATUS);
    on({"signal_poll"}).prints(SIGNAL);
    serve({"home", "work"});
    const std::string byTheClient = outputOf(test::platwifi({"status"}));
    askWithoutTheStandIn();
    Program program({"status"});
    answer("LIST_NETWORKS", test::LoadedHost::listed({"home", "work"}));
    EXPECT_EQ(m_server->sender(), socketOf(program, 1));
    answer("STATUS", STATUS);
    EXPECT_EQ(m_server->sender(), socketOf(program, 2));
    answer("SIGNAL_POLL", SIGNAL);
    EXPECT_EQ(m_server->sender(), socketOf(program, 3));
    EXPECT_EQ(outputOf(program.end()), byTheClient);
    EXPECT_THAT(byTheClient, HasSubstr("Networks:        2 configured\n"));
}

// A list whose reply has no room for a further network.
std::string fullList() {
    std::vector<std::string> ssids(64);
    for (std::size_t id = 0; id < ssids.size(); ++id)
        ssids[id] = std::string(50, 'x') + std::to_string(id);
    return test::LoadedHost::listed(ssids);
}

TEST_F(AQuestion, IsContinuedBehindAFullReply) {
    askWithoutTheStandIn();
    Program program({"status"});
    answer("LIST_NETWORKS", fullList());
    answer("LIST_NETWORKS LAST_ID=63", test::LIST_HEADER + "64\tlast\tany\t\n");
    answer("STATUS", "wpa_state=SCANNING\n");
    EXPECT_THAT(outputOf(program.end()), HasSubstr("Networks:  65 configured\n"));
}

TEST_F(AQuestion, IsNotContinuedUnderTheDevicesProfile) {
    askWithoutTheStandIn();
    setenv("PLATWIFI_PROFILE", "device", 1);
    Program program({"status"});
    unsetenv("PLATWIFI_PROFILE");
    answer("LIST_NETWORKS", fullList());
    answer("STATUS", "wpa_state=SCANNING\n");
    EXPECT_THAT(outputOf(program.end()), HasSubstr("Networks:  32 configured\n"));
}

TEST_F(AQuestion, LeavesNoSocketAfterASignal) {
    askWithoutTheStandIn();
    Program program({"status"});
    answer("LIST_NETWORKS", test::LoadedHost::listed({"home"}));
    EXPECT_EQ(m_server->receive(), "STATUS");
    EXPECT_TRUE(std::filesystem::exists(socketOf(program, 2)));
    program.signal(SIGINT);
    expectFailure(program.end(), "interrupted", -SIGINT);
}

TEST_F(AQuestion, GetsTheReplyAsTheClientPrintsIt) {
    askWithoutTheStandIn();
    EXPECT_EQ(replyTo("DE\n"), "DE");
    EXPECT_EQ(replyTo("a=1\nb=2 \n\n"), "a=1\nb=2");
    EXPECT_EQ(replyTo("FAIL\n"), "FAIL");
    EXPECT_EQ(replyTo(""), "");
    EXPECT_EQ(replyTo(std::string("ab\0cd\n", 6)), "ab");
    EXPECT_EQ(replyTo(std::string(5000, 'x')), std::string(4095, 'x'));
}

TEST_F(AQuestion, HasNoReplyFromASilentSupplicant) {
    test::TestTime time;
    time.deadlinesAre(test::QUICK);
    time.deadlinesAreRecorded();
    askWithoutTheStandIn();
    EXPECT_EQ(askSupplicant("wlan0", "ping", nullptr), "");
    EXPECT_THAT(time.events(), ElementsAre("deadline 5"));
    EXPECT_EQ(m_server->receive(), "PING");
}

TEST_F(AQuestion, HasNoReplyFromASupplicantWithAFullQueue) {
    test::TestTime time;
    time.deadlinesAre(test::QUICK);
    time.deadlinesAreRecorded();
    m_server->fillQueue();
    askWithoutTheStandIn();
    EXPECT_EQ(askSupplicant("wlan0", "ping", nullptr), "");
    EXPECT_THAT(time.events(), ElementsAre("deadline 5"));
}

TEST_F(AQuestion, IsAskedByTheClientThatIsChosen) {
    on({"get", "country"}).prints("DE\n");
    EXPECT_EQ(askSupplicant("wlan0", "get", "country"), "DE");
    EXPECT_THAT(commands(), ElementsAre("-iwlan0 get country"));
}

TEST_F(AQuestion, IsForTheClientIfNoConnectionCanBeMade) {
    askWithoutTheStandIn();
    EXPECT_EQ(askDirectly("wlan1", "ping", nullptr), std::nullopt);
    EXPECT_EQ(askDirectly(std::string(200, 'x'), "ping", nullptr), std::nullopt);
    m_server->die();
    EXPECT_EQ(askDirectly("wlan0", "ping", nullptr), std::nullopt);
}

// The client is that of this build, which ends with an explanation.
TEST_F(AQuestion, IsAskedByTheClientOfTheBuildIfNoConnectionCanBeMade) {
#ifdef TEST_EMULATOR
    GTEST_SKIP() << "an emulated program cannot start the client of the build";
#endif
    askWithoutTheStandIn();
    m_server->die();
    EXPECT_NE(askSupplicant("wlan0", "ping", nullptr), "");
}

} // namespace
