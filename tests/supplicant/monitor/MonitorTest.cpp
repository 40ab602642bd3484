// The command monitor beside the host's supplicant.

#include "Program.h"
#include "Supplicant.h"
#include "Terminal.h"

#include <gtest/gtest.h>

#include <csignal>
#include <optional>

namespace {

/// Starts the command on a terminal, where it says when it is attached.
class Monitor : public testing::Test {
protected:
    Monitor() { m_supplicant.start(); }

    void start() {
        const int end = m_terminal.ownEnd();
        m_program.emplace(test::Arguments{"monitor"}, test::Streams{end, end, end});
        m_terminal.readUntil("Waiting for events of wlan0; Ctrl-C ends this.");
    }

    test::Supplicant m_supplicant;
    test::TerminalPair m_terminal{200};
    std::optional<test::Program> m_program;
};

// With the wired driver a scan has no events; the lab shows those.
TEST_F(Monitor, ShowsAConnectionAndTheEndOfTheSupplicant) {
    start();
    m_supplicant.reload(test::openNetworks({"home"}));
    m_terminal.readUntil("network 0, 01:80:c2:00:00:03");
    m_supplicant.stop();
    m_terminal.readUntil("disconnected");
    m_terminal.readUntil("by this host, reason 3: the sender leaves the network");
    m_terminal.readUntil("supplicant ends");
    m_terminal.readUntil("platwifi: the supplicant no longer serves wlan0; start it again");
    EXPECT_EQ(m_program->end().status, 1);
}

TEST_F(Monitor, NoticesTheDeathOfTheSupplicant) {
    start();
    m_supplicant.crash();
    m_terminal.readUntil("supplicant lost");
    m_terminal.readUntil("platwifi: the supplicant no longer serves wlan0; start it again");
    EXPECT_EQ(m_program->end().status, 1);
}

TEST_F(Monitor, IsEndedByCtrlC) {
    start();
    m_terminal.type("\003");
    m_terminal.readUntil("platwifi: interrupted");
    EXPECT_EQ(m_program->end().status, -SIGINT);
}

} // namespace
