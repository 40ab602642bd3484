// The quick client beside the host's client, on the same supplicant.

#include "../Supplicant.h"
#include "CommandLines.h"

#include <csignal>
#include <filesystem>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace fs = std::filesystem;
using namespace test;

namespace {

std::string shown(const CommandLine& line) {
    std::string text;
    for (const std::string& word : line)
        text += (word.size() < 80 ? word : std::to_string(word.size()) + " bytes") + " | ";
    return text;
}

struct Transcript {
    std::vector<Answer> answers;
    Lines file; // what the supplicant saved
};

// Each client gets a supplicant of its own, in the same state.
Transcript transcriptOf(const ClientProgram& program, const std::vector<CommandLine>& lines) {
    Supplicant supplicant;
    supplicant.start(openNetworks({"home", "work"}));
    supplicant.awaitStatus("wpa_state=COMPLETED");
    Transcript transcript;
    for (const CommandLine& line : lines)
        transcript.answers.push_back(answerOf(program, line));
    transcript.file = supplicant.file();
    return transcript;
}

TEST(BothClients, AnswerEveryCommandLineTheSame) {
    const std::vector<CommandLine> lines = everyCommandLine();
    ASSERT_GE(lines.size(), 200U);
    const Transcript expected = transcriptOf(HOST_CLIENT, lines);
    const Transcript quick = transcriptOf(QUICK_CLIENT, lines);
    for (std::size_t i = 0; i < lines.size(); ++i)
        EXPECT_EQ(quick.answers[i], expected.answers[i]) << shown(lines[i]);
    EXPECT_EQ(quick.file, expected.file);
    RecordProperty("command lines", static_cast<int>(lines.size()));
}

void expectSame(const CommandLine& line) {
    const Answer expected = answerOf(HOST_CLIENT, line);
    EXPECT_EQ(answerOf(QUICK_CLIENT, line), expected) << shown(line);
}

void expectSameWithoutAConnection() {
    expectSame({"-iwlan0", "status"});
    expectSame({"-iwlan7", "set_network", "0", "psk", "\"very secret\""});
    expectSame({"-i" + std::string(200, 'x'), "status"});
    expectSame({"interface"});
    expectSame({"-iwlan0", "interface"});
}

TEST(BothClients, ReportTheSameWithoutASupplicant) {
    expectSameWithoutAConnection();
    fs::create_directory("/run/wpa_supplicant");
    expectSameWithoutAConnection();
    fs::remove("/run/wpa_supplicant");
}

TEST(BothClients, ReportTheSameAtTheSocketOfADeadSupplicant) {
    Supplicant supplicant;
    supplicant.start(openNetworks({"home"}));
    supplicant.crash();
    expectSameWithoutAConnection();
}

// A program as another user, which may not use the control socket.
Answer answerOfAnotherUser(const ClientProgram& program, const CommandLine& line) {
    const std::string copy = "/tmp/client-of-all";
    fs::copy_file(program.path, copy, fs::copy_options::overwrite_existing);
    fs::permissions(copy, fs::perms::others_read | fs::perms::others_exec, fs::perm_options::add);
    const ClientProgram readable{program.name, copy.c_str()};
    return RunningClient(readable, line,
                         {"setpriv", "--reuid=65534", "--regid=65534", "--clear-groups"})
        .answer();
}

TEST(BothClients, ReportTheSameToAUserWithoutPermission) {
    Supplicant supplicant;
    supplicant.start(openNetworks({"home"}));
    const Answer expected = answerOfAnotherUser(HOST_CLIENT, {"-iwlan0", "status"});
    if (expected.output.find("setpriv") != std::string::npos)
        GTEST_SKIP() << "no other user here: " << expected.output;
    EXPECT_THAT(expected.output, testing::HasSubstr("Permission denied"));
    EXPECT_EQ(answerOfAnotherUser(QUICK_CLIENT, {"-iwlan0", "status"}), expected);
    EXPECT_EQ(answerOfAnotherUser(QUICK_CLIENT, {"interface"}),
              answerOfAnotherUser(HOST_CLIENT, {"interface"}));
}

// A supplicant that does not answer.
class StoppedSupplicant : public testing::Test {
protected:
    StoppedSupplicant() {
        m_supplicant.start(openNetworks({"home"}));
        m_supplicant.suspend();
    }
    ~StoppedSupplicant() override { m_supplicant.resume(); }

    // Both clients, started for the same command line, and sent a signal if it is not 0. Several pairs may wait at
    // the same time.
    class Pair {
    public:
        explicit Pair(CommandLine line, int signal = 0)
            : m_line(std::move(line)), m_host(HOST_CLIENT, m_line), m_quick(QUICK_CLIENT, m_line) {
            for (const RunningClient* client : {&m_host, &m_quick}) {
                client->awaitSocket();
                if (signal != 0)
                    client->signal(signal);
            }
        }

        void expectSame() const {
            EXPECT_EQ(m_quick.answer(), m_host.answer()) << shown(m_line);
            EXPECT_EQ(fs::remove(m_quick.socket()), fs::remove(m_host.socket())) << shown(m_line);
        }

    private:
        CommandLine m_line;
        RunningClient m_host;
        RunningClient m_quick;
    };

private:
    Supplicant m_supplicant;
};

TEST_F(StoppedSupplicant, IsWaitedForTheSameTime) {
    const Pair one({"-iwlan0", "set_network", "0", "psk", "\"very secret\""});
    const Pair other({"interface"});
    one.expectSame();
    other.expectSame();
}

TEST_F(StoppedSupplicant, LeavesTheSameAfterASignal) {
    std::vector<Pair> pairs;
    for (const int signal : {SIGKILL, SIGTERM, SIGINT, SIGHUP}) {
        pairs.emplace_back(CommandLine{"-iwlan0", "status"}, signal);
        pairs.emplace_back(CommandLine{"interface"}, signal);
    }
    for (const Pair& pair : pairs)
        pair.expectSame();
}

TEST(BothClients, PrintTheSameOfAListThatIsTooLong) {
    Lines names;
    for (int i = 0; i < 200; ++i)
        names.push_back("network number " + std::to_string(i));
    Supplicant supplicant;
    supplicant.start(openNetworks(names));
    supplicant.awaitStatus("wpa_state=COMPLETED");
    const Answer expected = answerOf(HOST_CLIENT, {"-iwlan0", "list_networks"});
    EXPECT_GT(expected.output.size(), 4000U);
    EXPECT_EQ(answerOf(QUICK_CLIENT, {"-iwlan0", "list_networks"}), expected);
    expectSame({"-iwlan0", "list_networks", "LAST_ID=100"});
}

} // namespace
