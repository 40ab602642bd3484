// The quick client against a control socket of the test. How it compares with the host's client is shown by
// tests/supplicant/client.

#include "platform/FileDescriptor.h"
#include "support/Files.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <csignal>
#include <cstring>
#include <fcntl.h>
#include <filesystem>
#include <string>
#include <sys/socket.h>
#include <sys/un.h>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

using platform::FileDescriptor;
using testing::HasSubstr;
using testing::MatchesRegex;
using testing::Not;

namespace {

using Words = std::vector<std::string>;

constexpr const char* CONTROL_FOLDER = "/var/run/wpa_supplicant";
constexpr const char* OUTPUT = "/tmp/quick-client-output";

sockaddr_un addressOf(const std::string& path) {
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    std::strncpy(address.sun_path, path.c_str(), sizeof(address.sun_path) - 1);
    return address;
}

const sockaddr* generic(const sockaddr_un& address) {
    return reinterpret_cast<const sockaddr*>(&address);
}

struct Message {
    std::string text;
    sockaddr_un sender{};
};

/// The supplicant's end of the control connection of one interface.
class ControlSocket {
public:
    explicit ControlSocket(const std::string& iface)
        : m_path(std::string(CONTROL_FOLDER) + "/" + iface),
          m_socket(socket(AF_UNIX, SOCK_DGRAM | SOCK_CLOEXEC, 0)) {
        std::filesystem::create_directories(CONTROL_FOLDER);
        const sockaddr_un address = addressOf(m_path);
        EXPECT_EQ(bind(m_socket.number(), generic(address), sizeof(address)), 0);
    }
    ~ControlSocket() { std::filesystem::remove(m_path); }
    ControlSocket(const ControlSocket&) = delete;
    ControlSocket& operator=(const ControlSocket&) = delete;

    Message receive() const {
        char text[8192];
        Message message;
        socklen_t size = sizeof(message.sender);
        const ssize_t got = recvfrom(m_socket.number(), text, sizeof(text), 0,
                                     reinterpret_cast<sockaddr*>(&message.sender), &size);
        EXPECT_GE(got, 0);
        message.text.assign(text, static_cast<std::size_t>(got > 0 ? got : 0));
        return message;
    }

    void send(const std::string& text, const sockaddr_un& receiver) const {
        EXPECT_EQ(sendto(m_socket.number(), text.data(), text.size(), 0, generic(receiver),
                         sizeof(receiver)),
                  static_cast<ssize_t>(text.size()));
    }

private:
    std::string m_path;
    FileDescriptor m_socket;
};

/// The quick client, running, with both outputs in one file.
class Client {
public:
    explicit Client(Words words) {
        words.insert(words.begin(), "wpa_cli");
        std::vector<char*> arguments;
        for (std::string& word : words)
            arguments.push_back(word.data());
        arguments.push_back(nullptr);
        m_id = fork();
        if (m_id == 0)
            execute(arguments.data());
    }

    pid_t id() const { return m_id; }

    /// Waits for its end. @return the status of waitpid()
    int status() const {
        int status = 0;
        EXPECT_EQ(waitpid(m_id, &status, 0), m_id);
        return status;
    }

    static std::string output() { return test::contentOf(OUTPUT); }

private:
    [[noreturn]] static void execute(char* const* arguments) {
        const int output = open(OUTPUT, O_WRONLY | O_CREAT | O_TRUNC, 0600);
        dup2(output, STDOUT_FILENO);
        dup2(output, STDERR_FILENO);
        execv(QUICK_CLIENT, arguments);
        _exit(126);
    }

    pid_t m_id = -1;
};

bool exitedWith(int status, int expected) {
    return WIFEXITED(status) && WEXITSTATUS(status) == expected;
}

// The request that a command line sends.
std::string requestOf(const ControlSocket& supplicant, const Words& words) {
    const Client client(words);
    const Message request = supplicant.receive();
    supplicant.send("OK\n", request.sender);
    EXPECT_TRUE(exitedWith(client.status(), 0));
    return request.text;
}

struct Asked {
    Words words;
    std::string request;
};

const Asked EVERY_COMMAND[] = {
    {{"get_network", "0", "ssid"}, "GET_NETWORK 0 ssid"},
    {{"status"}, "STATUS"},
    {{"list_networks"}, "LIST_NETWORKS"},
    {{"list_networks", "LAST_ID=3"}, "LIST_NETWORKS LAST_ID=3"},
    {{"scan_results"}, "SCAN_RESULTS"},
    {{"interface"}, "INTERFACES"},
    {{"bss", "0"}, "BSS 0"},
    {{"get", "country"}, "GET country"},
    {{"get_capability", "key_mgmt"}, "GET_CAPABILITY key_mgmt"},
    {{"ping"}, "PING"},
    {{"signal_poll"}, "SIGNAL_POLL"},
    {{"add_network"}, "ADD_NETWORK"},
    {{"bssid", "0", "02:00:00:00:00:01"}, "BSSID 0 02:00:00:00:00:01"},
    {{"disable_network", "all"}, "DISABLE_NETWORK all"},
    {{"disconnect"}, "DISCONNECT"},
    {{"enable_network", "0"}, "ENABLE_NETWORK 0"},
    {{"reassociate"}, "REASSOCIATE"},
    {{"reconfigure"}, "RECONFIGURE"},
    {{"remove_network", "0"}, "REMOVE_NETWORK 0"},
    {{"save_config"}, "SAVE_CONFIG"},
    {{"scan"}, "SCAN"},
    {{"scan", "freq=2412", "passive=1"}, "SCAN freq=2412 passive=1"},
    {{"select", "0"}, "SELECT_NETWORK 0"},
    {{"select_network", "any"}, "SELECT_NETWORK any"},
    {{"set_network", "0", "ssid", "\"a b\""}, "SET_NETWORK 0 ssid \"a b\""},
    {{"set_network", "0", "eap", "PEAP", "TTLS"}, "SET_NETWORK 0 eap PEAP TTLS"},
    {{"set_network", "0", "psk", "-"}, "SET_NETWORK 0 psk -"},
};

TEST(QuickClient, SendsTheRequestOfEveryCommand) {
    const ControlSocket supplicant("wlan0");
    for (const auto& [words, request] : EVERY_COMMAND) {
        Words line = words;
        line.insert(line.begin(), "-iwlan0");
        EXPECT_EQ(requestOf(supplicant, line), request);
    }
}

// What the client prints for these replies, in front of which the supplicant may send messages.
std::string printed(const Words& words, const std::vector<std::string>& replies) {
    const ControlSocket supplicant("wlan0");
    const Client client(words);
    const Message request = supplicant.receive();
    for (const std::string& reply : replies)
        supplicant.send(reply, request.sender);
    EXPECT_TRUE(exitedWith(client.status(), 0));
    return Client::output();
}

TEST(QuickClient, PrintsTheReplyAsItIs) {
    const Words line = {"-iwlan0", "status"};
    EXPECT_EQ(printed(line, {"a=1\nb=2\n"}), "a=1\nb=2\n");
    EXPECT_EQ(printed(line, {"no line feed"}), "no line feed");
    EXPECT_EQ(printed(line, {""}), "");
    EXPECT_EQ(printed(line, {"FAIL\n"}), "FAIL\n");
}

TEST(QuickClient, EndsAReplyAtItsLimitAndAtANul) {
    const Words line = {"-iwlan0", "status"};
    EXPECT_EQ(printed(line, {std::string(5000, 'x')}), std::string(4095, 'x'));
    EXPECT_EQ(printed(line, {std::string("ab\0cd\n", 6)}), "ab");
}

TEST(QuickClient, PrintsAMessageBeforeTheReply) {
    const Words line = {"-iwlan0", "status"};
    EXPECT_EQ(printed(line, {"<3>CTRL-EVENT-SCAN-STARTED", "a=1\n"}),
              "<3>CTRL-EVENT-SCAN-STARTED\na=1\n");
    EXPECT_EQ(printed(line, {"IFNAME=wlan0 <3>text", "a=1\n"}), "IFNAME=wlan0 <3>text\na=1\n");
}

TEST(QuickClient, SelectsTheFirstInterfaceThatCanConnect) {
    const ControlSocket p2p("p2p-dev-wlan0");
    std::filesystem::create_directory(std::string(CONTROL_FOLDER) + "/folder");
    EXPECT_EQ(printed({"interface"}, {"wlan0\np2p-dev-wlan0\n"}),
              "Selected interface 'wlan0'\nAvailable interfaces:\nwlan0\np2p-dev-wlan0\n");
    std::filesystem::remove(std::string(CONTROL_FOLDER) + "/folder");
}

TEST(QuickClient, ErasesItsArguments) {
#ifdef TEST_EMULATOR
    GTEST_SKIP() << "the arguments that the system shows are the emulator's";
#endif
    const ControlSocket supplicant("wlan0");
    const Client client({"-iwlan0", "set_network", "0", "psk", "\"very secret\""});
    const Message request = supplicant.receive();
    const std::string shown = test::contentOf("/proc/" + std::to_string(client.id()) + "/cmdline");
    supplicant.send("OK\n", request.sender);
    EXPECT_TRUE(exitedWith(client.status(), 0));
    EXPECT_EQ(request.text, "SET_NETWORK 0 psk \"very secret\"");
    EXPECT_THAT(shown, Not(HasSubstr("secret")));
    EXPECT_THAT(shown, Not(HasSubstr("set_network")));
    EXPECT_THAT(shown, HasSubstr("wpa_cli"));
}

TEST(QuickClient, SaysWhatItIs) {
    const Client client({"--version"});
    EXPECT_TRUE(exitedWith(client.status(), 0));
    EXPECT_THAT(Client::output(), MatchesRegex("platwifi quick client [0-9.]+\n"));
}

TEST(QuickClient, PrintsNothingWhenItIsKilled) {
    const ControlSocket supplicant("wlan0");
    const Client client({"interface"});
    supplicant.receive();
    kill(client.id(), SIGKILL);
    const int status = client.status();
    EXPECT_TRUE(WIFSIGNALED(status) && WTERMSIG(status) == SIGKILL) << status;
    EXPECT_EQ(Client::output(), "");
    EXPECT_TRUE(std::filesystem::remove("/tmp/wpa_ctrl_" + std::to_string(client.id()) + "-1"));
}

TEST(QuickClient, AnswersInTheTimeAfterATermination) {
    const ControlSocket supplicant("wlan0");
    for (const int signal : {SIGTERM, SIGINT}) {
        const Client client({"-iwlan0", "ping"});
        const Message request = supplicant.receive();
        kill(client.id(), signal);
        supplicant.send("PONG\n", request.sender);
        EXPECT_TRUE(exitedWith(client.status(), 0));
        EXPECT_EQ(Client::output(), "PONG\n");
    }
}

} // namespace
