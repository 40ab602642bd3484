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

    /// A supplicant with these networks that accepts every change. Rules that a test adds before
    /// come first.
    void serve(const std::vector<std::string>& ssids, const std::string& state = "INACTIVE");

    /// What the supplicant was told that changes something, in order, joined by blanks, without the
    /// option that names the interface.
    std::vector<std::string> changes() const;

    /// Expects one line on standard error that says this.
    static void expectOneLine(const Ending& ending, const std::string& says);

    LoadedHost host;
};

} // namespace test
