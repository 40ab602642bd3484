// The input of the command line (SSIDs in the client's notation, scan lines, values of properties, arguments,
// words to complete) and the output for it.

#include "Input.h"
#include "ModelSupplicant.h"
#include "Require.h"

#include "CommandLine.h"
#include "client/Listing.h"
#include "commands/CommandTable.h"
#include "commands/LinkReport.h"
#include "completion/Completion.h"
#include "display/Table.h"
#include "display/Text.h"
#include "display/Wrap.h"
#include "edits/PropertyTable.h"
#include "host/Host.h"
#include "host/Link.h"
#include "host/ScanResult.h"
#include "host/Ssid.h"
#include "settings/replies/PrintedSsid.h"
#include "supplicant/WifiUtil.h"
#include "values/Failure.h"

#include <algorithm>
#include <iostream>
#include <sstream>

using fuzz::Input;
using fuzz::ModelSupplicant;

// The commands of the program, which only record their arguments.
const std::vector<cli::Command>& realCommands() __asm__("__real__ZN3cli8commandsEv");
const std::vector<cli::Command>& idleCommands() __asm__("__wrap__ZN3cli8commandsEv");

namespace {

cli::Request lastRequest;

void noteRequest(cli::Context& context) {
    lastRequest = context.request;
}

} // namespace

const std::vector<cli::Command>& idleCommands() {
    static const std::vector<cli::Command> commands = [] {
        std::vector<cli::Command> idle = realCommands();
        for (cli::Command& command : idle)
            command.run = noteRequest;
        return idle;
    }();
    return commands;
}

namespace {

// Discards the output, and never fails.
class Nowhere : public std::streambuf {
protected:
    int overflow(int byte) override { return byte == EOF ? 0 : byte; }
    std::streamsize xsputn(const char*, std::streamsize size) override { return size; }
};

bool isVisible(const std::string& text) {
    return std::none_of(text.begin(), text.end(),
                        [](char byte) { return (byte >= 0 && byte < ' ') || byte == 0x7F; });
}

void ssids(Input& input) {
    const std::string ssid = input.text();
    REQUIRE(isVisible(cli::shownSsid(ssid)) && !cli::shownSsid(ssid).empty());
    REQUIRE(cli::isUtf8(cli::shownSsid(ssid)) && cli::isUtf8(cli::plainSsid(ssid)));
    REQUIRE(cli::isSameSsid(ssid, platwifi::printedSsid(ssid)));
    const auto readings = cli::readingsOf(platwifi::printedSsid(ssid));
    REQUIRE(std::find(readings.begin(), readings.end(), ssid) != readings.end());
    const std::size_t size = platwifi::bytesOfPrinted(ssid).size(); // no reading is shorter
    REQUIRE(size <= cli::typedSsid(ssid).size() && cli::typedSsid(ssid).size() <= ssid.size());
    bool isAllowed = true;
    try {
        cli::requireSsid(ssid);
    } catch (const cli::WrongUse& error) {
        isAllowed = false;
        REQUIRE(isVisible(error.what()));
    }
    REQUIRE(isAllowed == (size > 0 && size <= 32));
}

// Any bytes are read back from the client's notation.
void printedSsids(Input& input) {
    const std::string bytes = input.rest();
    const std::string printed = platwifi::printedSsid(bytes);
    REQUIRE(printed == ModelSupplicant::printed(bytes));
    REQUIRE(platwifi::bytesOfPrinted(printed) == bytes);
}

// A connection of which the supplicant reports anything.
void link(const std::string& reply) {
    const cli::LinkState state = cli::LinkState::of("wpa_state=COMPLETED\n" + reply, reply);
    REQUIRE(state.link && (!state.link->signal || *state.link->signal < 0));
    for (const auto& [label, text] : cli::rowsOf(*state.link, true))
        REQUIRE_FOR(!text.empty() && isVisible(text) && cli::isUtf8(text), text);
}

void scanResults(Input& input) {
    const std::string line = input.text();
    link(line);
    const auto result = cli::ScanResult::of(line);
    REQUIRE(result.has_value() == (std::count(line.begin(), line.end(), '\t') >= 4));
    if (!result)
        return;
    REQUIRE(cli::channelOf(result->frequency) >= 0 && cli::channelOf(result->frequency) <= 233);
    REQUIRE(!cli::securityOf(result->flags).empty());
    REQUIRE(line.size() >= result->ssid.size() &&
            line.substr(line.size() - result->ssid.size()) == result->ssid);
}

void texts(Input& input) {
    const unsigned int cells = input.below(80);
    const std::string bytes = input.text();
    const std::string text = cli::printable(bytes);
    REQUIRE_FOR(cli::isUtf8(text) && isVisible(text), text);
    REQUIRE(cli::printable(text) == text);
    const std::string cut = cli::cutTo(text, cells);
    REQUIRE(cli::cellsOf(cut) <= cells && cli::isUtf8(cut));
    REQUIRE(cli::cellsOf(text) > cells || cut == text);
    std::string joined;
    for (const std::string& line : cli::wrapped(text, cells)) {
        REQUIRE_FOR(cli::cellsOf(line) <= std::max(cells, 2U), line); // one character at least
        joined += line;
    }
    const auto isBlank = [](char byte) { return byte == ' '; };
    joined.erase(std::remove_if(joined.begin(), joined.end(), isBlank), joined.end());
    std::string words = text;
    words.erase(std::remove_if(words.begin(), words.end(), isBlank), words.end());
    REQUIRE_FOR(joined == words, text);
}

void tables(Input& input) {
    const unsigned int width = 1 + input.below(120);
    cli::Table table({{"SSID"}, {"dBm", cli::Table::Align::RIGHT}, {"Security"}});
    while (!input.isEmpty())
        table.add({cli::printable(input.text(60)), cli::printable(input.text(20)),
                   cli::printable(input.text(60))});
    cli::Console console;
    console.width = width;
    std::ostringstream out;
    table.print(out, console);
    std::istringstream lines(out.str());
    for (std::string line; std::getline(lines, line);)
        REQUIRE_FOR(cli::cellsOf(line) <= width && cli::isUtf8(line), line);
}

// A value is converted to one that the library accepts, or refused by a message that a terminal can show and
// that contains no secret.
void properties(Input& input) {
    const auto& all = cli::properties();
    const cli::Property& property = all[input.byte() % all.size()];
    const std::string value = input.text();
    if (!property.take)
        return;
    try {
        const std::string taken = property.take(property, value);
        REQUIRE(taken.find('\0') == std::string::npos && isVisible(taken));
        REQUIRE(property.take(property, taken) == taken);
    } catch (const cli::WrongUse& error) {
        REQUIRE_FOR(isVisible(error.what()), error.what());
    }
}

void names(Input& input) {
    const std::string name = input.text();
    try {
        REQUIRE(cli::propertyOf(name).name == name);
    } catch (const cli::WrongUse& error) {
        REQUIRE_FOR(isVisible(error.what()) && cli::isUtf8(error.what()), error.what());
    }
}

std::vector<std::string> wordsFrom(Input& input) {
    std::vector<std::string> words;
    while (!input.isEmpty() && words.size() < 12)
        words.push_back(input.text(80));
    return words;
}

void arguments(Input& input) {
    const std::vector<std::string> words = wordsFrom(input);
    std::vector<char*> pointers{const_cast<char*>("platwifi")};
    for (const std::string& word : words)
        pointers.push_back(const_cast<char*>(word.c_str()));
    pointers.push_back(nullptr);
    lastRequest = cli::Request();
    const int status = cli::runCommandLine(static_cast<int>(pointers.size()) - 1, pointers.data());
    REQUIRE(status == cli::DONE || status == cli::WRONG_USE);
    REQUIRE(lastRequest.timeout >= 1 && lastRequest.timeout <= 3600);
}

// For any reply of the supplicant, completion offers words that begin with the typed text.
void completion(Input& input) {
    ModelSupplicant& model = ModelSupplicant::instance();
    model.reset();
    model.configure(0, input.text(32), true);
    model.garbage = input.text(200);
    const bool isGarbage = input.flag();
    model.before = [=](const ModelSupplicant::Command&) {
        return isGarbage ? ModelSupplicant::Fault::GARBAGE : ModelSupplicant::Fault::NONE;
    };
    const std::vector<std::string> words = wordsFrom(input);
    if (!words.empty() && words.back().find_first_of("/@") == std::string::npos) {
        for (const cli::Candidate& candidate : cli::candidatesFor(words))
            REQUIRE(candidate.word.rfind(words.back(), 0) == 0);
    }
    bool ok = false;
    for (const cli::ListedNetwork& network : cli::listedNetworks("wlan0", ok))
        REQUIRE(network.ssid.find('\t') == std::string::npos);
    WifiUtil::unload();
}

constexpr void (*PARTS[])(Input&) = {ssids,      printedSsids, scanResults, texts,    tables,
                                     properties, names,        completion,  arguments};

} // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static Nowhere nowhere;
    std::cout.rdbuf(&nowhere);
    std::cerr.rdbuf(&nowhere);
    Input input(data, size);
    PARTS[input.below(sizeof(PARTS) / sizeof(PARTS[0]))](input);
    return 0;
}
