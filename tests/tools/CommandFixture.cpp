#include "CommandFixture.h"

#include <algorithm>
#include <cstdlib>

using testing::HasSubstr;
using testing::StartsWith;

namespace test {
namespace {

const Arguments QUERIES = {"interface",   "list_networks", "scan_results",  "status",
                           "get_network", "scan",          "get_capability"};

// The words from the one with this number on.
std::string joined(const Arguments& call, std::size_t first) {
    std::string text;
    for (std::size_t i = first; i < call.size(); ++i)
        text += (i == first ? "" : " ") + call[i];
    return text;
}

bool isChange(const Arguments& call) {
    return call.size() > 2 && std::find(QUERIES.begin(), QUERIES.end(), call[2]) == QUERIES.end();
}

} // namespace

CommandFixture::CommandFixture() {
    setenv("PLATFORM_KEY_FILE", "/tmp/crypt.key", 1);
    setenv("TERM", "xterm", 1);
    unsetenv("NO_COLOR");
}

void CommandFixture::serve(const std::vector<std::string>& ssids, const std::string& state) {
    for (const char* word : {"save_config", "reconfigure", "reassociate"})
        accept({word});
    accept({"set_network", "*"});
    host.answers(ssids, state);
}

std::vector<std::string> CommandFixture::changes() const {
    std::vector<std::string> changes;
    for (const Arguments& call : host.calls()) {
        if (isChange(call))
            changes.push_back(joined(call, 2));
    }
    return changes;
}

std::vector<std::string> CommandFixture::commands() const {
    std::vector<std::string> commands;
    for (const Arguments& call : host.calls())
        commands.push_back(joined(call, 1));
    return commands;
}

StandIn::Answer CommandFixture::on(Arguments command) {
    command.insert(command.begin(), "-iwlan0");
    return host.on(command);
}

std::size_t CommandFixture::callsOf(Arguments command) const {
    command.insert(command.begin(), "-iwlan0");
    return host.callsOf(command);
}

std::string CommandFixture::outputOf(const Ending& ending) {
    EXPECT_EQ(ending.status, 0);
    EXPECT_EQ(ending.err, "");
    return ending.out;
}

void CommandFixture::expectOneLine(const Ending& ending, const std::string& says) {
    EXPECT_THAT(ending.err, StartsWith("platwifi: "));
    EXPECT_EQ(std::count(ending.err.begin(), ending.err.end(), '\n'), 1) << ending.err;
    EXPECT_EQ(ending.err.empty() ? '\0' : ending.err.back(), '\n');
    EXPECT_THAT(ending.err, HasSubstr(says));
}

void CommandFixture::expectFailure(const Ending& ending, const std::string& says, int status) {
    EXPECT_EQ(ending.status, status);
    EXPECT_EQ(ending.out, "");
    expectOneLine(ending, says);
}

} // namespace test
