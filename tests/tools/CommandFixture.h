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

    /// Expects one line on standard error that contains this text.
    static void expectOneLine(const Ending& ending, const std::string& says);

    LoadedHost host;
};

} // namespace test
