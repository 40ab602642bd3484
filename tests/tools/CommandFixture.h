#pragma once

#include "Program.h"
#include "support/LoadedHost.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace test {

/// Runs the command line with a scripted supplicant.
class CommandFixture : public testing::Test {
protected:
    CommandFixture();

    /// Answers like a supplicant with these networks that accepts every change. Answers that a test
    /// has added before take precedence.
    void serve(const std::vector<std::string>& ssids, const std::string& state = "INACTIVE");

    /// The client's commands that change something, in order: the words of each joined by blanks,
    /// without the option that names the interface.
    std::vector<std::string> changes() const;

    /// All commands of the client, in order: the words of each joined by blanks.
    std::vector<std::string> commands() const;

    /// The answer to a command of the client for wlan0.
    StandIn::Answer on(Arguments command);

    /// The supplicant accepts a command for wlan0.
    void accept(const Arguments& command) { on(command).prints("OK\n"); }

    /// How often the client was called with exactly this command for wlan0.
    std::size_t callsOf(Arguments command) const;

    /// Expects success, and nothing on standard error. @return what was printed
    static std::string outputOf(const Ending& ending);

    /// Expects one line on standard error that contains this text.
    static void expectOneLine(const Ending& ending, const std::string& says);

    /// Expects also this status, and nothing on standard output.
    static void expectFailure(const Ending& ending, const std::string& says, int status = 1);

    LoadedHost host;
};

} // namespace test
