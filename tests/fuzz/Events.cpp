// What the command line reads from the messages of the supplicant, and what it prints of them.

#include "Input.h"
#include "Require.h"

#include "commands/EventReport.h"
#include "display/Text.h"
#include "events/ConnectionHistory.h"
#include "events/EventParser.h"
#include "host/Ssid.h"
#include "settings/replies/PrintedSsid.h"

#include <algorithm>
#include <sstream>

using cli::Event;
using fuzz::Input;
using Kind = cli::Event::Kind;

namespace {

bool isVisible(const std::string& text) {
    return std::none_of(text.begin(), text.end(),
                        [](char byte) { return (byte >= 0 && byte < ' ') || byte == 0x7F; });
}

bool isMac(const std::string& text) {
    return text.size() == 17 &&
           text.find_first_not_of("0123456789abcdefABCDEF:") == std::string::npos;
}

// One line in a pipe; on a terminal no line is wider than that.
void requireReport(const Event& event, unsigned int width) {
    const std::string line = cli::reportOf(event, 0, cli::Console());
    REQUIRE_FOR(line.back() == '\n' && isVisible(line.substr(0, line.size() - 1)), line);
    REQUIRE_FOR(cli::isUtf8(line), line);
    cli::Console console;
    console.width = width;
    std::istringstream lines(cli::reportOf(event, 0, console));
    for (std::string one; std::getline(lines, one);)
        REQUIRE_FOR(cli::cellsOf(one) <= std::max(width, 2U), one); // one character at least
}

void requireNoSecret(const std::string& message, const Event& event) {
    for (const char* const beginning : {"WPS-", "DPP-", "P2P-", "CTRL-RSP-"}) {
        if (message.rfind(beginning, 0) == 0)
            REQUIRE_FOR(event.text.find_first_of(" :=") == std::string::npos, event.text);
    }
}

void messages(Input& input) {
    cli::ConnectionHistory history;
    const unsigned int width = 1 + input.below(200);
    while (!input.isEmpty()) {
        const std::string message = input.text(300);
        Event event = cli::parseEvent(message);
        requireNoSecret(message, event);
        REQUIRE(event.kind == Kind::OTHER || event.text.empty());
        history.complete(event);
        REQUIRE(event.bssid.empty() || isMac(event.bssid));
        REQUIRE(event.previousBssid.empty() || isMac(event.previousBssid));
        requireReport(event, width);
        REQUIRE(cli::recordOf(event, 0).size() >= 2);
    }
}

// A name of any bytes is read back, and changes nothing else of its message.
void names(Input& input) {
    const std::string bytes = input.rest();
    const std::string name = platwifi::printedSsid(bytes);
    const Event attempt = cli::parseEvent("<3>Trying to associate with 02:00:00:00:01:00 (SSID='" +
                                          name + "' freq=2412 MHz)");
    REQUIRE_FOR(attempt.ssid == bytes, attempt.ssid);
    REQUIRE(attempt.bssid == "02:00:00:00:01:00" && attempt.frequency == 2412);
    const Event suspended = cli::parseEvent("<3>CTRL-EVENT-SSID-TEMP-DISABLED id=5 ssid=\"" + name +
                                            "\" auth_failures=1 duration=10 reason=AUTH_FAILED");
    REQUIRE_FOR(suspended.kind == Kind::SUSPENDED && suspended.ssid == bytes, suspended.ssid);
    REQUIRE(suspended.network == 5 && suspended.failures == 1 && suspended.seconds == 10);
}

} // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    Input input(data, size);
    if (input.flag())
        names(input);
    else
        messages(input);
    return 0;
}
