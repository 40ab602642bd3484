// Signals that end a command, from a program or by a key on the terminal.

#include "CommandFixture.h"
#include "Terminal.h"
#include "support/Checkpoint.h"
#include "support/Leftovers.h"

#include <cerrno>
#include <csignal>
#include <filesystem>
#include <thread>

using test::Arguments;
using test::CAPTURED;
using test::Ending;
using test::Program;
using test::Streams;
using testing::Contains;
using testing::HasSubstr;
using testing::Not;

namespace {

// The client's own socket. The client removes it when it exits, but not when it is killed.
constexpr const char* SOCKET = "/tmp/wpa_ctrl_%d-1";
const std::string SOCKET_PREFIX = "/tmp/wpa_ctrl_";

std::vector<pid_t> clientsWithASocket() {
    std::vector<pid_t> clients;
    for (const auto& file : std::filesystem::directory_iterator("/tmp")) {
        const std::string path = file.path();
        if (path.rfind(SOCKET_PREFIX, 0) == 0)
            clients.push_back(std::stoi(path.substr(SOCKET_PREFIX.size())));
    }
    return clients;
}

pid_t awaitClient() {
    while (clientsWithASocket().empty())
        std::this_thread::yield();
    return clientsWithASocket().front();
}

bool isGone(pid_t process) {
    return kill(process, 0) != 0 && errno == ESRCH;
}

class Interrupted : public test::CommandFixture {
protected:
    void hangAt(const Arguments& call) { host.on(call).leaves(SOCKET).hangs(); }

    static void expectNothingLeft(pid_t client) {
        EXPECT_TRUE(isGone(client));
        EXPECT_TRUE(clientsWithASocket().empty());
        EXPECT_TRUE(test::resultFiles().empty());
        EXPECT_FALSE(std::filesystem::exists("/dev/shm/wifi_shmem"));
    }
};

TEST_F(Interrupted, WhileTheClientHangs) {
    hangAt({"interface"});
    for (const int signal : {SIGINT, SIGTERM}) {
        Program program({"status"});
        const pid_t client = awaitClient();
        program.signal(signal);
        expectFailure(program.end(), "interrupted", -signal);
        expectNothingLeft(client);
    }
}

TEST_F(Interrupted, WhileItLoads) {
    hangAt({"-iwlan0", "get_network", "1", "priority"});
    serve({"home", "work"});
    Program program({"networks"});
    const pid_t client = awaitClient();
    program.signal(SIGINT);
    expectFailure(program.end(), "interrupted", -SIGINT);
    expectNothingLeft(client);
}

// A save that has begun is finished, so that the supplicant and its file agree.
TEST_F(Interrupted, WhileItSavesEndsAfterTheSave) {
    test::Checkpoint saving("/tmp/saving");
    on({"save_config"}).pausesAt(saving.path()).prints("OK\n");
    serve({"home"});
    Program program({"set", "home", "priority=5"});
    saving.awaitArrival();
    program.signal(SIGTERM);
    saving.letGo();
    expectFailure(program.end(), "interrupted while saving", -SIGTERM);
    EXPECT_EQ(changes().back(), "reconfigure");
    EXPECT_FALSE(std::filesystem::exists("/dev/shm/wifi_shmem"));
}

/// A command whose standard streams all lead to a terminal.
class AtTheTerminal : public Interrupted {
protected:
    Streams streams() const {
        return {m_terminal.ownEnd(), m_terminal.ownEnd(), m_terminal.ownEnd()};
    }

    bool echoes() const { return (m_terminal.settings().c_lflag & ECHO) != 0; }

    test::TerminalPair m_terminal{80};
};

TEST_F(AtTheTerminal, DoesNotEchoASecret) {
    serve({"home"});
    Program program({"set", "home", "psk=-"}, streams());
    m_terminal.readUntil("psk: ");
    EXPECT_FALSE(echoes());
    m_terminal.type("correct horse\n");
    EXPECT_THAT(m_terminal.readUntil("home is saved."), Not(HasSubstr("correct")));
    EXPECT_EQ(program.end().status, 0);
    EXPECT_TRUE(echoes());
    EXPECT_THAT(changes(), Contains("set_network 0 psk \"correct horse\""));
}

struct Key {
    const char* typed;
    int signal;
};

TEST_F(AtTheTerminal, EndsThePromptForASecretByCtrlC) {
    serve({"home"});
    for (const Key& key : {Key{"\003", SIGINT}, Key{"\034", SIGQUIT}}) {
        test::TerminalPair terminal(80);
        const int end = terminal.ownEnd();
        Program program({"set", "home", "psk=-"}, {end, end, end});
        terminal.readUntil("psk: ");
        terminal.type(key.typed);
        terminal.readUntil("\r\nplatwifi: interrupted\r\n");
        EXPECT_EQ(program.end().status, -key.signal);
        EXPECT_NE(terminal.settings().c_lflag & ECHO, 0u);
    }
    EXPECT_TRUE(changes().empty());
}

TEST_F(AtTheTerminal, FailsIfTheInputEndsBeforeTheSecret) {
    serve({"home"});
    Program program({"set", "home", "psk=-"}, streams());
    m_terminal.readUntil("psk: ");
    m_terminal.type("\004");
    m_terminal.readUntil("there is no psk on standard input");
    EXPECT_EQ(program.end().status, 1);
    EXPECT_TRUE(echoes());
}

TEST_F(AtTheTerminal, EndsAHangingClientByCtrlC) {
    hangAt({"-iwlan0", "list_networks"});
    serve({});
    Program program({"networks"}, streams());
    const pid_t client = awaitClient();
    m_terminal.type("\003");
    m_terminal.readUntil("platwifi: interrupted");
    EXPECT_EQ(program.end().status, -SIGINT);
    expectNothingLeft(client);
}

} // namespace
