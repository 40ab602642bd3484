// The command monitor, with a control socket of the test.

#include "CommandFixture.h"
#include "EventServer.h"
#include "Terminal.h"

#include <nlohmann/json.hpp>

#include <csignal>
#include <fcntl.h>
#include <filesystem>
#include <unistd.h>

using nlohmann::json;
using platform::FileDescriptor;
using test::Arguments;
using test::CAPTURED;
using test::Ending;
using test::EventServer;
using test::Program;
using testing::HasSubstr;
using testing::MatchesRegex;

namespace {

constexpr const char* SCANNED = "<3>CTRL-EVENT-SCAN-RESULTS ";
constexpr const char* REFUSED = "<3>CTRL-EVENT-ASSOC-REJECT bssid=02:00:00:00:01:00 status_code=17";

/// A pipe whose reading end is the test's.
class Pipe {
public:
    Pipe() {
        int ends[2] = {-1, -1};
        EXPECT_EQ(pipe2(ends, O_CLOEXEC), 0);
        m_read = FileDescriptor(ends[0]);
        m_write = FileDescriptor(ends[1]);
    }

    int writingEnd() const { return m_write.number(); }
    void closeWritingEnd() { m_write.close(); }
    void closeReadingEnd() { m_read.close(); }

    /// Waits for the next line, and returns it without its line feed.
    std::string line() const {
        std::string text;
        char byte = 0;
        while (read(m_read.number(), &byte, 1) == 1 && byte != '\n')
            text += byte;
        return text;
    }

private:
    FileDescriptor m_read;
    FileDescriptor m_write;
};

class Monitor : public test::CommandFixture {
protected:
    Monitor() {
        host.on({"arg"}).prints("12 wpa_supplicant -B -i wlan0\n");
        host.on({"-iwlan0", "arg"}).prints("12 wpa_supplicant -B -i wlan0\n");
        serve({});
    }

    /// Starts the command with its output in the pipe, and attaches it to the server.
    void start(const Arguments& arguments = {"monitor"}) {
        m_program.emplace(arguments, test::Streams{CAPTURED, m_output.writingEnd()});
        m_output.closeWritingEnd();
        m_server->attach();
        noteSocket();
    }

    std::string lineAfter(const std::string& message) const {
        m_server->send(message);
        return m_output.line();
    }

    /// The socket through which the program is connected; the program's id is its name.
    void noteSocket() {
        m_socket = "/tmp/wpa_ctrl_" + std::to_string(m_program->id()) + "-1";
        EXPECT_TRUE(std::filesystem::exists(m_socket));
    }

    bool leavesASocket() const { return std::filesystem::exists(m_socket); }

    std::optional<EventServer> m_server{std::in_place};
    Pipe m_output;
    std::optional<Program> m_program;
    std::string m_socket;
};

TEST_F(Monitor, ShowsEachEventAsItComes) {
    start();
    EXPECT_THAT(lineAfter(SCANNED),
                MatchesRegex("[0-2][0-9]:[0-5][0-9]:[0-6][0-9]  scan finished"));
    EXPECT_THAT(lineAfter("<3>Trying to associate with 02:00:00:00:01:00 "
                          "(SSID='caf\\xc3\\xa9' freq=2412 MHz)"),
                HasSubstr("associating             café, 02:00:00:00:01:00, 2412 MHz"));
    EXPECT_THAT(lineAfter(REFUSED),
                HasSubstr("association refused     café, 02:00:00:00:01:00, status "
                          "17: the access point has too many stations"));
    m_program->signal(SIGINT);
    EXPECT_EQ(m_program->end().status, -SIGINT);
}

TEST_F(Monitor, ShowsAnObjectForEachEventInJson) {
    start({"monitor", "--json"});
    json event = json::parse(lineAfter(REFUSED));
    EXPECT_THAT(event["time"].get<std::string>(),
                MatchesRegex("20[0-9-]+T[0-9]{2}:[0-9]{2}:[0-9]{2}Z"));
    event.erase("time");
    EXPECT_EQ(event, json({{"event", "associationRefused"},
                           {"bssid", "02:00:00:00:01:00"},
                           {"code", 17},
                           {"meaning", "the access point has too many stations"}}));
    event = json::parse(lineAfter("<3>CTRL-EVENT-EAP-PEER-CERT depth=0 subject='/CN=\xff'"));
    EXPECT_EQ(event["certificate"], "/CN=\xef\xbf\xbd");
}

TEST_F(Monitor, IsEndedByASignal) {
    for (const int signal : {SIGINT, SIGTERM, SIGHUP, SIGQUIT}) {
        m_output = Pipe();
        start();
        m_program->signal(signal);
        const Ending ending = m_program->end();
        EXPECT_EQ(ending.status, -signal);
        expectOneLine(ending, "interrupted");
        EXPECT_FALSE(leavesASocket());
    }
}

TEST_F(Monitor, IsEndedByASignalWhileTheSupplicantDoesNotAnswer) {
    m_program.emplace(Arguments{"monitor"});
    EXPECT_EQ(m_server->receive(), "ATTACH");
    noteSocket();
    m_program->signal(SIGINT);
    const Ending ending = m_program->end();
    EXPECT_EQ(ending.status, -SIGINT);
    expectOneLine(ending, "interrupted");
    EXPECT_FALSE(leavesASocket());
}

TEST_F(Monitor, FailsWhenTheSupplicantEnds) {
    start();
    EXPECT_THAT(lineAfter("<3>CTRL-EVENT-TERMINATING "), HasSubstr("  supplicant ends"));
    const Ending ending = m_program->end();
    EXPECT_EQ(ending.status, 1);
    expectOneLine(ending, "the supplicant no longer serves wlan0; start it again, then platwifi");
    EXPECT_FALSE(leavesASocket());
}

TEST_F(Monitor, FailsWhenTheSupplicantDies) {
    start();
    m_server->die();
    EXPECT_THAT(m_output.line(), HasSubstr("  supplicant lost"));
    const Ending ending = m_program->end();
    EXPECT_EQ(ending.status, 1);
    expectOneLine(ending, "the supplicant no longer serves wlan0; start it again");
}

TEST_F(Monitor, EndsQuietlyAtAnEventAfterItsReaderHasGone) {
    start();
    EXPECT_THAT(lineAfter(SCANNED), HasSubstr("scan finished"));
    m_output.closeReadingEnd();
    m_server->send(SCANNED);
    const Ending ending = m_program->end();
    EXPECT_EQ(ending.status, 1);
    EXPECT_EQ(ending.err, "");
    EXPECT_FALSE(leavesASocket());
}

TEST_F(Monitor, EndsQuietlyAlsoWithoutAnEventAfterItsReaderHasGone) {
    start();
    m_output.closeReadingEnd();
    const Ending ending = m_program->end();
    EXPECT_EQ(ending.status, 1);
    EXPECT_EQ(ending.err, "");
}

TEST_F(Monitor, NamesTheObstacleInOneLine) {
    m_server.reset();
    const Ending ending = test::platwifi({"monitor"});
    EXPECT_EQ(ending.status, 1);
    EXPECT_EQ(ending.out, "");
    expectOneLine(ending, "there is no folder /run/wpa_supplicant; put ctrl_interface=");
}

TEST_F(Monitor, RefusesAnInterfaceThatIsNotServedOrTooLong) {
    Ending ending = test::platwifi({"monitor", "-i", "wlan1"});
    EXPECT_EQ(ending.status, 1);
    expectOneLine(ending, "the supplicant does not serve wlan1; platwifi adapters lists");
    ending = test::platwifi({"monitor", "-i", std::string(100, 'w')});
    EXPECT_EQ(ending.status, 2);
    expectOneLine(ending, "the name of an interface has 1");
}

TEST_F(Monitor, SaysOnATerminalThatItWaits) {
    test::TerminalPair terminal(60);
    const int end = terminal.ownEnd();
    Program program({"monitor"}, {end, end, end});
    m_server->attach();
    terminal.readUntil("Waiting for events of wlan0; Ctrl-C ends this.");
    m_server->send("<3>CTRL-EVENT-DISCONNECTED bssid=02:00:00:00:01:00 reason=15");
    EXPECT_THAT(terminal.readUntil("wrong\r\n"), HasSubstr("\033[31mdisconnected\033[0m"));
    terminal.type("\003");
    terminal.readUntil("^C\r\nplatwifi: interrupted");
    EXPECT_EQ(program.end().status, -SIGINT);
}

} // namespace
